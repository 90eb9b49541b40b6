// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "support/SuiteScope.h"

namespace ovtest {

/// Counts the attributes that are made through the wrappers for as long as it lives. One at a
/// time.
class MadeAttributes {
public:
    MadeAttributes() : scope_(table()) { counted() = {}; }

    /// How many numbers and strings were made.
    int data() const { return counted().data; }

    /// How many groups were made.
    int groups() const { return counted().groups; }

private:
    struct Counts {
        int data = 0;
        int groups = 0;
    };

    static Counts& counted() {
        static Counts counts;
        return counts;
    }

    static const OvAttributeSuite& real() { return *OvGetAttributeSuite(); }

    static const OvAttributeSuite& table() {
        static const OvAttributeSuite counting = made();
        return counting;
    }

    /// The function at `Entry` of the real table, with a count.
    template <auto Entry, int Counts::*Count, class... Arguments>
    static OvAttributeStruct* counting(Arguments... arguments) {
        ++(counted().*Count);
        return (real().*Entry)(arguments...);
    }

    template <auto Entry, int Counts::*Count, class... Arguments>
    static void listen(OvAttributeSuite& suite,
                       OvAttributeStruct* (*OvAttributeSuite::*)(Arguments...)) {
        suite.*Entry = counting<Entry, Count, Arguments...>;
    }

    template <auto Entry, int Counts::*Count>
    static void listenTo(OvAttributeSuite& suite) {
        listen<Entry, Count>(suite, Entry);
    }

    static OvAttributeSuite made() {
        OvAttributeSuite suite = real();
        listenTo<&OvAttributeSuite::createInt, &Counts::data>(suite);
        listenTo<&OvAttributeSuite::createFloat, &Counts::data>(suite);
        listenTo<&OvAttributeSuite::createDouble, &Counts::data>(suite);
        listenTo<&OvAttributeSuite::createString, &Counts::data>(suite);
        listenTo<&OvAttributeSuite::createStringArray, &Counts::data>(suite);
        listenTo<&OvAttributeSuite::createIntFromSamples, &Counts::data>(suite);
        listenTo<&OvAttributeSuite::createFloatFromSamples, &Counts::data>(suite);
        listenTo<&OvAttributeSuite::createDoubleFromSamples, &Counts::data>(suite);
        listenTo<&OvAttributeSuite::createStringFromSamples, &Counts::data>(suite);
        listenTo<&OvAttributeSuite::createGroup, &Counts::groups>(suite);
        listenTo<&OvAttributeSuite::createGroupWithLengths, &Counts::groups>(suite);
        listenTo<&OvAttributeSuite::buildBuilder, &Counts::groups>(suite);
        return suite;
    }

    SuiteScope scope_;
};

}  // namespace ovtest
