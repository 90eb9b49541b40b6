// SPDX-License-Identifier: Apache-2.0
/// All of the view in one shared object, which is linked with nothing of ours: what is missing
/// fails the link.
#include <OvSylvarProducers/suites/Scene.hpp>

#include <string>

using namespace SYLVAR::Suites;

template class SYLVAR::Suites::Expected<Scene>;
template class SYLVAR::Suites::Expected<Location>;
template class SYLVAR::Suites::Expected<Attribute>;
template class SYLVAR::Suites::Values<std::int32_t>;
template class SYLVAR::Suites::Values<float>;
template class SYLVAR::Suites::Values<double>;
template class SYLVAR::Suites::Values<const char*>;
template class SYLVAR::Suites::Samples<std::int32_t>;
template class SYLVAR::Suites::Samples<float>;
template class SYLVAR::Suites::Samples<double>;
template class SYLVAR::Suites::Samples<const char*>;

namespace {

std::size_t usesOf(const Attribute& attribute) {
    Attribute copy = attribute;
    copy = attribute;
    std::size_t uses = copy.kind() == Kind::Group ? 1 : 0;
    uses += static_cast<std::size_t>(copy.get(0)) + copy.get(std::string()).size();
    uses += static_cast<std::size_t>(copy.get(0.0F) + copy.get(0.0));
    uses += copy.values<float>().size() + copy.samples<double>().size();
    uses += static_cast<std::size_t>(copy.tupleSize() + copy.childCount());
    for (const auto& [name, value] : copy.children()) {
        uses += name.size() + value.childName(0).size();
    }
    return uses + (copy.child("a") ? 1U : 0U) + (copy.child(0) ? 1U : 0U);
}

std::size_t usesOf(const Scene& scene, const Location& location) {
    std::size_t uses = location.name().size() + location.fullName().size() + location.type().size();
    Location::Children children = location.children(Evict::Yes);
    for (const Location& child : children) {
        uses += usesOf(scene, child.share());
    }
    uses += children.error() ? children.error()->message().size() : 0;
    for (const Expected<Location>& step : {location.firstChild(),
                                           location.nextSibling(),
                                           location.parent(),
                                           location.root(),
                                           location.child("a"),
                                           location.at(std::string("a"))}) {
        uses += step ? usesOf(step->attributes()) : step.error().message().size();
    }
    uses += location.attributeNames().size() + location.potentialChildren().size();
    uses += usesOf(location.attribute("a")) + location.values<float>("a").size();
    uses += static_cast<std::size_t>(location.get("a", 0));
    const Expected<Attribute> inherited = location.globalAttribute("a");
    const Expected<Attribute> transforms = location.globalXForm();
    const Expected<void> finalized = location.finalize();
    Location shared = scene.share(location.handle());
    const Location adopted = scene.adopt(shared.detach());
    return uses + (inherited && transforms && finalized && adopted ? 1U : 0U);
}

}  // namespace

extern "C" __attribute__((visibility("default"))) std::size_t usesOfTheView(
    const OvHostTable* host,
    OvAttributeStruct* opTree);

std::size_t usesOfTheView(const OvHostTable* host, OvAttributeStruct* opTree) {
    const Expected<Scene> scene = Scene::find(*host);
    if (!scene) {
        return scene.error().message().size();
    }
    const Expected<Location> file = scene->openFile("a");
    const Expected<Location> tree = scene->openOpTree(opTree);
    const Expected<Attribute> described = scene->describeFile("a");
    return (file ? usesOf(*scene, *file) : 0U) + (tree ? usesOf(*scene, *tree) : 0U) +
           (described ? usesOf(*described) : 0U);
}
