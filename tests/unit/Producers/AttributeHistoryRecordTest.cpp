// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/AttributeHistoryRecord.h>
#include <SylvarPlatform/DataAttribute.h>

#include <gtest/gtest.h>

using SYLVAR::AttributeHistoryRecord;
using Sylvar3::internal::OvAttribute::Attribute;
using Sylvar3::internal::OvAttribute::IntAttribute;

TEST(AttributeHistoryRecord, BeginsWithAnEmptyLocationAndTheNullAttribute) {
    const AttributeHistoryRecord record;
    EXPECT_EQ("", record.location);
    EXPECT_FALSE(record.attribute);
}

TEST(AttributeHistoryRecord, CopiesTheLocationAndRetainsTheAttribute) {
    Attribute value = IntAttribute(7);
    const OvAttributeStruct* const handle = value.handle();
    std::string location = "/root/a";
    const AttributeHistoryRecord record(location, value);
    location.clear();
    value = Attribute();
    EXPECT_EQ("/root/a", record.location);
    EXPECT_EQ(handle, record.attribute.handle());
    EXPECT_EQ(OV_ATTRIBUTE_INT, record.attribute.getType());
}

TEST(AttributeHistoryRecord, HoldsTheLocationBeforeTheAttribute) {
    const AttributeHistoryRecord record;
    EXPECT_LT(static_cast<const void*>(&record.location),
              static_cast<const void*>(&record.attribute));
}
