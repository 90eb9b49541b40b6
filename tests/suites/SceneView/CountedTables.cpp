// SPDX-License-Identifier: Apache-2.0
#include "suites/SceneView/CountedTables.h"

namespace ovtest {
namespace {

using Scene = OvScenegraphIteratorSuite;
using Values = OvAttributeSuite;

const Scene* realScene = nullptr;
const Values* realValues = nullptr;

/// The entries that hand something out, in front of the real ones; the arguments are those of the
/// entry that they are assigned to.
template <auto kEntry, class... Args>
OvSgIteratorStruct* makingRoot(Args... args) {
    OvSgIteratorStruct* const made = (realScene->*kEntry)(args...);
    CountedTables::locations().made(made, 1);
    return made;
}

template <auto kEntry, class... Args>
OvSgIteratorStruct* stepping(Args... args) {
    OvSgIteratorStruct* const made = (realScene->*kEntry)(args...);
    CountedTables::locations().made(made, 0);
    return made;
}

template <auto kEntry, class... Args>
OvAttributeStruct* telling(Args... args) {
    OvAttributeStruct* const told = (realScene->*kEntry)(args...);
    CountedTables::values().made(told, 1);
    return told;
}

template <auto kEntry, class... Args>
OvAttributeStruct* giving(Args... args) {
    OvAttributeStruct* const given = (realValues->*kEntry)(args...);
    CountedTables::values().made(given, 1);
    return given;
}

Scene countedScene() {
    Scene suite = *realScene;
    suite.sgRetain = [](OvSgIteratorStruct* iterator) {
        CountedTables::locations().retained(iterator);
        realScene->sgRetain(iterator);
    };
    suite.sgRelease = [](OvSgIteratorStruct* iterator) {
        CountedTables::locations().released(iterator);
        realScene->sgRelease(iterator);
    };
    suite.sgCreateRootFromFile = makingRoot<&Scene::sgCreateRootFromFile>;
    suite.sgCreateRootFromAttr = makingRoot<&Scene::sgCreateRootFromAttr>;
    suite.sgGetFirstChild = stepping<&Scene::sgGetFirstChild>;
    suite.sgGetNextSibling = stepping<&Scene::sgGetNextSibling>;
    suite.sgGetParent = stepping<&Scene::sgGetParent>;
    suite.sgGetRoot = stepping<&Scene::sgGetRoot>;
    suite.sgGetChildByName = stepping<&Scene::sgGetChildByName>;
    suite.sgGetByPath = stepping<&Scene::sgGetByPath>;
    suite.sgLoadOpTreeDescription = telling<&Scene::sgLoadOpTreeDescription>;
    suite.sgGetName = telling<&Scene::sgGetName>;
    suite.sgGetFullName = telling<&Scene::sgGetFullName>;
    suite.sgGetAttribute = telling<&Scene::sgGetAttribute>;
    suite.sgGetGlobalAttribute = telling<&Scene::sgGetGlobalAttribute>;
    suite.sgGetAttributeNames = telling<&Scene::sgGetAttributeNames>;
    suite.sgGetGlobalXFormGroup = telling<&Scene::sgGetGlobalXFormGroup>;
    suite.sgGetPotentialChildren = telling<&Scene::sgGetPotentialChildren>;
    return suite;
}

Values countedValues() {
    Values suite = *realValues;
    suite.retain = [](OvAttributeStruct* attribute) {
        CountedTables::values().retained(attribute);
        realValues->retain(attribute);
    };
    suite.release = [](OvAttributeStruct* attribute) {
        CountedTables::values().released(attribute);
        realValues->release(attribute);
    };
    suite.createStringArray = giving<&Values::createStringArray>;
    suite.getChildByIndex = giving<&Values::getChildByIndex>;
    suite.getChildByName = giving<&Values::getChildByName>;
    return suite;
}

}  // namespace

void HandleLedger::made(const void* handle, int references) {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (handle) {
        owned_[handle] += references;
    }
}

void HandleLedger::retained(const void* handle) {
    made(handle, 1);
}

/// Before the real release, so that the address is free to come again.
void HandleLedger::released(const void* handle) {
    const std::lock_guard<std::mutex> lock(mutex_);
    const auto found = owned_.find(handle);
    if (found == owned_.end() || found->second == 0) {
        ++excess_;
    } else if (--found->second == 0) {
        owned_.erase(found);
    }
}

std::size_t HandleLedger::open() {
    const std::lock_guard<std::mutex> lock(mutex_);
    return owned_.size();
}

int HandleLedger::excess() {
    const std::lock_guard<std::mutex> lock(mutex_);
    return excess_;
}

void HandleLedger::clear() {
    const std::lock_guard<std::mutex> lock(mutex_);
    owned_.clear();
    excess_ = 0;
}

CountedTables::CountedTables(const OvScenegraphIteratorSuite& itsScene,
                             const OvAttributeSuite& itsValues) {
    realScene = &itsScene;
    realValues = &itsValues;
    scene = countedScene();
    attributes = countedValues();
    locations().clear();
    values().clear();
}

HandleLedger& CountedTables::locations() {
    static HandleLedger ledger;
    return ledger;
}

HandleLedger& CountedTables::values() {
    static HandleLedger ledger;
    return ledger;
}

}  // namespace ovtest
