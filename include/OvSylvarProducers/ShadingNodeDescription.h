// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/GeometryProducer.h>

#include <boost/smart_ptr/shared_ptr.hpp>

#include <map>
#include <string>
#include <vector>

namespace SYLVAR {

/// What drives an input of a shading node. Immutable; any thread.
class OV_SYLVAR_PRODUCERS_API ShadingNodeConnectionDescription {
public:
    /// `fullName` is the input's name; a last ":" in it and what follows is no part of it. `source`
    /// reads "port@node", with or without blanks around the two; it may be null.
    ShadingNodeConnectionDescription(const std::string& fullName, const StringAttribute& source);

    /// Whether input, node and port have a name each.
    bool isValid() const;

    const std::string& getName() const { return name_; }
    const std::string& getConnectedNodeName() const { return connectedNodeName_; }
    const std::string& getConnectedPortName() const { return connectedPortName_; }

private:
    std::string name_;
    std::string connectedNodeName_;
    std::string connectedPortName_;
};

/// A node of a shading network: its parameters, with the values that the network's interface gives
/// them, and what drives its inputs. Immutable; any thread.
class OV_SYLVAR_PRODUCERS_API ShadingNodeDescription {
public:
    using Parameters = std::map<std::string, Attribute>;
    using ConnectionPtr = boost::shared_ptr<ShadingNodeConnectionDescription>;
    using Nodes = std::map<std::string, boost::shared_ptr<ShadingNodeDescription>>;

    /// Reads a node's group. `overrides` has values that replace or add parameters; it may be null.
    /// A group without a string "name" and a string "type", or a null one, gives a description of
    /// nothing, which is not valid.
    ShadingNodeDescription(const GroupAttribute& node, const Parameters* overrides);

    /// Whether name and type are not empty.
    bool isValid() const { return !name_.empty() && !type_.empty(); }

    const std::string& getName() const { return name_; }
    const std::string& getType() const { return type_; }

    /// The names of the parameters: the node's own in their order, then those that were added.
    const std::vector<std::string>& getParameterNames() const { return parameterNames_; }
    void getParameterNames(std::vector<std::string>& names) const { names = parameterNames_; }

    /// Null when there is none of that name.
    Attribute getParameter(const std::string& name) const;

    /// The full names of the connections in the order in which they were found. An input within an
    /// input is "outer.inner"; nothing deeper is found, nor what stands behind a million entries.
    const std::vector<std::string>& getConnectionNames() const { return connectionNames_; }
    void getConnectionNames(std::vector<std::string>& names) const { names = connectionNames_; }

    /// By its full name; empty when there is none.
    ConnectionPtr getConnection(const std::string& fullName) const;

    /// Replaces `nodes` by the nodes of a network, by their names: of two with one name the later
    /// one. Those that are not valid are left out; a null network has none.
    static void GetShadingNetworkNodes(  // NOLINT(readability-identifier-naming)
        const GroupAttribute& network,
        Nodes& nodes);

    /// The same for the attribute "material" of that one location; what it inherits is left out of
    /// account. The producer must not be null.
    static void GetShadingNetworkNodes(  // NOLINT(readability-identifier-naming)
        GeometryProducerPtr producer,
        Nodes& nodes);

private:
    void readParameters(const GroupAttribute& node, const Parameters* overrides);
    void addConnection(const std::string& fullName, const StringAttribute& source);
    void recursiveGetConnectionNames(const GroupAttribute& group, const std::string& prefix);

    std::string name_;
    std::string type_;
    Parameters parameters_;
    std::vector<std::string> parameterNames_;
    std::map<std::string, ConnectionPtr> connections_;
    std::vector<std::string> connectionNames_;
};

}  // namespace SYLVAR
