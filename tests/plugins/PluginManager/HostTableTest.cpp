// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/suites/AttributeSuite.h>
#include <SylvarPlatform/suites/HostTable.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>

namespace {

const OvHostTable& host() {
    return *OvGetHostTable();
}

TEST(HostTable, TellsItsSizeAndVersionAndKeepsReservedPlacesNull) {
    EXPECT_EQ(sizeof(OvHostTable), host().size);
    EXPECT_EQ(1U, host().version);
    EXPECT_EQ(nullptr, host().reserved6);
    EXPECT_EQ(nullptr, host().reserved7);
    EXPECT_EQ(nullptr, host().reserved8);
    EXPECT_EQ(nullptr, host().reserved9);
}

TEST(HostTable, HasRegisterHostSuiteInTheEleventhPlace) {
    static_assert(offsetof(OvHostTable, registerHostSuite) == 10 * sizeof(void*));
    using Register = int (*)(const void*, const char*, unsigned int);
    Register eleventh = nullptr;
    std::memcpy(
        &eleventh, reinterpret_cast<const char*>(&host()) + 10 * sizeof(void*), sizeof eleventh);
    EXPECT_EQ(host().registerHostSuite, eleventh);
}

TEST(HostTable, FindsTheAttributeSuite) {
    EXPECT_EQ(OvGetAttributeSuite(), host().findSuite("Attribute", 1));
    EXPECT_EQ(nullptr, host().findSuite("Attribute", 2));
    EXPECT_EQ(nullptr, host().findSuite("attribute", 1));
    EXPECT_EQ(nullptr, host().findSuite(nullptr, 1));
}

TEST(HostTable, FindsWhatWasRegisteredByNameAndVersion) {
    static const int second = 2;
    static const int third = 3;
    EXPECT_EQ(0, host().registerHostSuite(&third, "Registered", 3));
    EXPECT_EQ(0, host().registerHostSuite(&second, "Registered", 2));
    EXPECT_EQ(&third, host().findSuite("Registered", 3));
    EXPECT_EQ(&second, host().findSuite("Registered", 2));
    EXPECT_EQ(nullptr, host().findSuite("Registered", 1));
}

TEST(HostTable, KeepsTheFirstSuiteOfANameAndVersion) {
    static const int first = 1;
    static const int other = 2;
    EXPECT_EQ(OV_HOST_SUITE_REGISTERED, host().registerHostSuite(&first, "Kept", 1));
    EXPECT_EQ(OV_HOST_SUITE_REGISTERED, host().registerHostSuite(&first, "Kept", 1));
    EXPECT_EQ(OV_HOST_SUITE_TAKEN, host().registerHostSuite(&other, "Kept", 1));
    EXPECT_EQ(OV_HOST_SUITE_TAKEN, host().registerHostSuite(&other, "Attribute", 1));
    EXPECT_EQ(&first, host().findSuite("Kept", 1));
}

TEST(HostTable, RefusesWhatIsNoSuite) {
    static const int suite = 1;
    EXPECT_EQ(OV_HOST_SUITE_INVALID, host().registerHostSuite(nullptr, "Nothing", 1));
    EXPECT_EQ(OV_HOST_SUITE_INVALID, host().registerHostSuite(&suite, nullptr, 1));
    EXPECT_EQ(OV_HOST_SUITE_INVALID, host().registerHostSuite(&suite, "", 1));
}

}  // namespace
