// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/Export.h>
#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupAttribute.h>
#include <SylvarPlatform/SylvarRuntime.h>

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <boost/smart_ptr/intrusive_ref_counter.hpp>

#include <memory>
#include <set>
#include <string>

namespace SYLVAR {

using Sylvar3::internal::OvAttribute::Attribute;
using Sylvar3::internal::OvAttribute::GroupAttribute;
using Sylvar3::internal::OvAttribute::StringAttribute;
using Sylvar3::internal::OvSylvar::SylvarRuntime;

class GeometryProducer;
using GeometryProducerPtr = boost::intrusive_ptr<GeometryProducer>;

/// One scene location and the steps to its neighbours.
///
/// A snapshot: it does not change, so any thread may call it without a lock, and pass it on. Every
/// step makes a new object; two producers of one path are two objects. A producer keeps its chain
/// of ancestors alive and knows nothing of its children.
///
/// A location that is not there is a null result, never an exception.
class OV_SYLVAR_PRODUCERS_API GeometryProducer
    : public boost::sp_adl_block::intrusive_ref_counter<GeometryProducer,
                                                        boost::sp_adl_block::thread_safe_counter> {
public:
    /// The location above; null at the top of a tree. Not for a derived class's destructor: a long
    /// chain is taken apart from below, and then the link is null already.
    GeometryProducerPtr parent;

    virtual ~GeometryProducer();
    GeometryProducer(const GeometryProducer&) = delete;
    GeometryProducer& operator=(const GeometryProducer&) = delete;

    /// Adds the names of this location's attributes to the set, which is not cleared first. A null
    /// pointer does nothing.
    virtual void getAttributeNames(std::set<std::string>* names) = 0;

    /// The names of the children that this location may have; a potential child need not exist.
    /// Can be null.
    virtual StringAttribute getPotentialChildren() = 0;

    /// The attribute of that name, dotted names included; null when absent. Null or "" gives the
    /// group of all attributes.
    virtual Attribute getAttribute(const char* name) = 0;

    /// The text behind the last "/" of the path; empty when the path has none.
    virtual std::string getName() = 0;

    /// The path, from the top location down.
    virtual std::string getFullName() = 0;

    /// The text of the location's content hash: equal texts show equal content.
    virtual std::string getHash() = 0;

    /// One step down by name, or ".." and ".". Null when there is no such child. With `evict` the
    /// location is dropped from the runtime's cache and cooked anew. A null name leads nowhere.
    ///
    /// Throws `std::runtime_error`, "getChildByName does not support deep child lookups", for any
    /// other name with a "/" in it.
    virtual GeometryProducerPtr getChildByName(const char* name, bool evict) = 0;

    /// The first child that exists, or null.
    virtual GeometryProducerPtr getFirstChild(bool evict) = 0;

    /// The next sibling that exists, or null.
    virtual GeometryProducerPtr getNextSibling(bool evict) = 0;

    /// The runtime client behind this location; empty when there is none.
    virtual std::shared_ptr<SylvarRuntime::Client> getClient();

    /// The string attribute "type"; empty when it is missing or anything else. Never throws.
    std::string getType();

    /// The top of the tree: the last location reached by `parent`.
    GeometryProducerPtr getRootProducer();

    /// The attribute of that name here, the locations above considered: the nearest one that has
    /// it wins, and groups with group inherit on are merged with those above. Null when absent.
    Attribute getGlobalAttribute(const std::string& name);

    /// The location at a path whose first component is this location's own name, or ".", or "..":
    /// from /root/world, "world/geo" and "/world/geo" lead to /root/world/geo. Null when a step
    /// leads nowhere. `evict` reaches the last step alone.
    GeometryProducerPtr getProducerByPath(const std::string& path, bool evict);

    /// The "xform" attributes of the chain, the top location's first: a group with the children
    /// "i0", "i1", ... by depth. A location without one leaves its number out. Never null.
    GroupAttribute getGlobalXFormGroup();

protected:
    explicit GeometryProducer(GeometryProducerPtr parent);
};

}  // namespace SYLVAR
