// SPDX-License-Identifier: Apache-2.0
#include "Scene/LocationDelegates.h"

#include <SylvarPlatform/SampleAccessor.h>

#include "Scene/HostTables.h"

#include <exception>

namespace ovscene {
namespace {

using Sylvar3::internal::OvAttribute::castAttribute;
using Sylvar3::internal::OvAttribute::SampleAccessor;
using Sylvar3::internal::OvAttribute::StringAttribute;

std::vector<std::string> textsOf(const StringAttribute& attribute) {
    std::vector<std::string> texts;
    for (const char* const text : SampleAccessor<StringAttribute>(attribute, 0.0F)) {
        texts.emplace_back(text ? text : "");
    }
    return texts;
}

DelegateAnswer ask(const OvLocationDelegate& delegate) {
    DelegateAnswer answer;
    void* const instance = delegate.create();
    answer.renderer =
        castAttribute<StringAttribute>(delegate.getSupportedRenderer(instance)).getValue("");
    answer.types = textsOf(castAttribute<StringAttribute>(delegate.getLocationTypes(instance)));
    return answer;
}

bool isWhole(const OvLocationDelegate& delegate) {
    return delegate.create && delegate.process && delegate.getSupportedRenderer &&
           delegate.getLocationTypes;
}

DelegateAnswer failed(const std::string& fault) {
    DelegateAnswer answer;
    answer.fault = fault;
    return answer;
}

}  // namespace

DelegateAnswer askDelegate(const OvLocationDelegate& delegate) {
    if (!isWhole(delegate)) {
        return failed("its table has a null entry");
    }
    try {
        return ask(delegate);
    } catch (const std::exception& error) {
        const char* const text = error.what();
        return failed(std::string("it throws: ") + (text ? text : ""));
    } catch (...) {
        return failed("it throws what is no std::exception");
    }
}

std::vector<std::string> typesWithDelegates(const std::string& renderer) {
    return textsOf(castAttribute<StringAttribute>(
        hostRenderOutputUtils().getLocationTypesWithDelegates(renderer.c_str())));
}

}  // namespace ovscene
