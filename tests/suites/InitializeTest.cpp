// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/suites/Initialize.h>
#include <OvSylvarProducers/suites/ScenegraphIteratorSuite.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <dlfcn.h>
#include <string>
#include <utility>
#include <vector>

using testing::ElementsAre;
using testing::SizeIs;

namespace {

struct Registration {
    const void* suite;
    std::string name;
    std::uint32_t version;
};

std::vector<Registration>& registrations() {
    static std::vector<Registration> all;
    return all;
}

/// Returns 100 and how many were registered.
int note(const void* suite, const char* name, std::uint32_t version) {
    registrations().push_back({suite, name, version});
    return 100 + static_cast<int>(registrations().size());
}

/// A host that takes every suite. All of its other places are what nobody may read as a pointer.
OvHostTable hostWith(int (*registerHostSuite)(const void*, const char*, std::uint32_t)) {
    registrations().clear();
    OvHostTable host;
    std::memset(&host, 0x7F, sizeof host);
    host.registerHostSuite = registerHostSuite;
    return host;
}

std::vector<std::pair<std::string, std::uint32_t>> namesAndVersions() {
    std::vector<std::pair<std::string, std::uint32_t>> all;
    for (const Registration& one : registrations()) {
        all.emplace_back(one.name, one.version);
    }
    return all;
}

OvHostTable& changingHost() {
    static OvHostTable host = hostWith(note);
    return host;
}

}  // namespace

TEST(Initialize, RegistersTheIteratorSuiteTheNewerVersionFirstAndThenTheRenderOutputSuite) {
    const OvHostTable host = hostWith(note);
    OvSylvarProducersInitialize(&host);
    EXPECT_THAT(namesAndVersions(),
                ElementsAre(std::pair("ScenegraphIteratorHost", 3U),
                            std::pair("ScenegraphIteratorHost", 2U),
                            std::pair("RenderOutputUtilsHost", 3U)));
}

TEST(Initialize, ReturnsWhatTheThirdRegistrationReturned) {
    const OvHostTable host = hostWith(note);
    EXPECT_EQ(103, OvSylvarProducersInitialize(&host));
}

TEST(Initialize, ReadsTheHostsMemberAnewForEachRegistration) {
    OvHostTable& host = changingHost();
    host = hostWith([](const void*, const char*, std::uint32_t) {
        changingHost().registerHostSuite = note;
        return 7;
    });
    EXPECT_EQ(102, OvSylvarProducersInitialize(&host));
    EXPECT_THAT(namesAndVersions(),
                ElementsAre(std::pair("ScenegraphIteratorHost", 2U),
                            std::pair("RenderOutputUtilsHost", 3U)));
}

TEST(Initialize, GoesOnWhenTheFirstRegistrationsFail) {
    const OvHostTable host =
        hostWith([](const void* suite, const char* name, std::uint32_t version) {
            note(suite, name, version);
            return registrations().size() < 3 ? 9 : 0;
        });
    EXPECT_EQ(0, OvSylvarProducersInitialize(&host));
    EXPECT_THAT(registrations(), SizeIs(3));
}

TEST(Initialize, RegistersTheSameTablesWhenItIsCalledAgain) {
    const OvHostTable host = hostWith(note);
    OvSylvarProducersInitialize(&host);
    OvSylvarProducersInitialize(&host);
    ASSERT_THAT(registrations(), SizeIs(6));
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(registrations()[i].suite, registrations()[i + 3].suite) << i;
    }
    EXPECT_NE(registrations()[0].suite, registrations()[1].suite);
    EXPECT_NE(registrations()[0].suite, registrations()[2].suite);
    EXPECT_NE(registrations()[1].suite, registrations()[2].suite);
}

TEST(Initialize, GivesEveryHostTheSameTables) {
    const OvHostTable host = hostWith(note);
    OvSylvarProducersInitialize(&host);
    const OvHostTable& other = *OvGetHostTable();
    ASSERT_EQ(OV_HOST_SUITE_REGISTERED, OvSylvarProducersInitialize(&other));
    for (const Registration& one : registrations()) {
        EXPECT_EQ(one.suite, other.findSuite(one.name.c_str(), one.version)) << one.name;
    }
}

TEST(Initialize, IsExportedByItsPlainName) {
    const void* const entry = ::dlsym(RTLD_DEFAULT, OV_SYLVAR_PRODUCERS_INITIALIZE_SYMBOL);
    EXPECT_EQ(reinterpret_cast<const void*>(&OvSylvarProducersInitialize), entry);
}

TEST(Initialize, LetsThePlatformsHostFindAllTables) {
    const OvHostTable& host = *OvGetHostTable();
    ASSERT_EQ(OV_HOST_SUITE_REGISTERED, OvSylvarProducersInitialize(&host));
    ASSERT_EQ(OV_HOST_SUITE_REGISTERED, OvSylvarProducersInitialize(&host));
    const void* const suite3 = host.findSuite("ScenegraphIteratorHost", 3);
    const void* const suite2 = host.findSuite("ScenegraphIteratorHost", 2);
    ASSERT_NE(nullptr, suite3);
    ASSERT_NE(nullptr, suite2);
    EXPECT_NE(suite3, suite2);
    EXPECT_NE(nullptr, host.findSuite("RenderOutputUtilsHost", 3));
    EXPECT_EQ(nullptr, host.findSuite("ScenegraphIteratorHost", 1));
}
