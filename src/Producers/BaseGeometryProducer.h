// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/GeometryProducer.h>
#include <SylvarPlatform/SampleAccessor.h>

#include <cstdint>
#include <set>
#include <string>

namespace SYLVAR {

/// A location that a runtime cooked, and the steps from it. The location is cooked before the
/// producer is made, and kept as it was. Only a location that exists has a producer.
///
/// A derived class says how a location is got, and makes the producers of its own class.
class BaseGeometryProducer : public GeometryProducer {
public:
    using LocationData = SylvarRuntime::LocationData;

    /// The index of a producer that was not reached from its parent. Its next sibling is the first
    /// child of the parent, which may be itself.
    static constexpr std::int64_t kUnknownIndex = -1;

    void getAttributeNames(std::set<std::string>* names) override;
    StringAttribute getPotentialChildren() override;
    Attribute getAttribute(const char* name) override;
    std::string getName() override;
    std::string getFullName() override;
    std::string getHash() override;

    /// Looks for the name in all time samples of the potential children, and cooks it only when it
    /// is there.
    GeometryProducerPtr getChildByName(const char* name, bool evict) override;

    /// The children are those of the sample nearest time 0, here and below.
    GeometryProducerPtr getFirstChild(bool evict) override;

    GeometryProducerPtr getNextSibling(bool evict) override;

    /// Any location by its full path, as this class gets it.
    virtual LocationData cookChildLocation(const char* path, bool evict) = 0;

    /// A producer of this class with the same client. `index` is the place in the parent's list of
    /// potential children, or `kUnknownIndex`.
    virtual GeometryProducerPtr createProducer(const std::string& path,
                                               const LocationData& location,
                                               long index,
                                               GeometryProducerPtr itsParent) = 0;

protected:
    BaseGeometryProducer(std::string path,
                         LocationData location,
                         std::int64_t index,
                         GeometryProducerPtr itsParent);

    /// @name The two operations above without their copies, for the steps
    /// @{
    virtual LocationData cook(const std::string& path, bool evict) = 0;
    virtual GeometryProducerPtr make(std::string path,
                                     LocationData location,
                                     std::int64_t index,
                                     GeometryProducerPtr itsParent) = 0;
    /// @}

private:
    using Names = Sylvar3::internal::OvAttribute::SampleAccessor<StringAttribute>;

    GeometryProducerPtr firstOf(const Names& names,
                                std::int64_t from,
                                const std::string& above,
                                GeometryProducer& itsParent,
                                bool evict);

    const std::string path_;
    const LocationData locationData_;
    const std::int64_t index_;
    const GroupAttribute attrs_;
};

}  // namespace SYLVAR
