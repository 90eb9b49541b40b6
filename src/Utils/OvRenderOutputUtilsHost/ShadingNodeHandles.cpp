// SPDX-License-Identifier: Apache-2.0
#include "Utils/OvRenderOutputUtilsHost/ShadingNodeHandles.h"

#include <OvSylvarProducers/ScenegraphIteratorHost.h>

#include "Utils/OvRenderOutputUtilsHost/CountedHandle.h"

#include <memory>
#include <string>
#include <vector>

namespace SYLVAR {
namespace {

using Network = OvShadingNetworkNodesStruct;
using Node = ShadingNodeDescriptionStruct;
using Connection = ShadingNodeConnectionDescriptionStruct;
using Names = const std::vector<std::string>& (ShadingNodeDescription::*)() const;

constexpr Names kParameterNames = &ShadingNodeDescription::getParameterNames;
constexpr Names kConnectionNames = &ShadingNodeDescription::getConnectionNames;

template <class Source>
Network* networkOf(const Source& source) {
    auto network = std::make_unique<Network>();
    ShadingNodeDescription::GetShadingNetworkNodes(source, network->nodes);
    return network.release();
}

Network* getShadingNetworkNodesFromAttr(OvAttributeStruct* attribute) {
    using Sylvar3::internal::OvAttribute::castAttribute;
    const auto group = castAttribute<GroupAttribute>(Attribute::share(attribute));
    return group ? networkOf(group) : nullptr;
}

Network* getShadingNetworkNodesFromIterator(OvSgIteratorStruct* iterator) {
    return networkOf(OvHandleToGeometryProducer(iterator));
}

void freeShadingNetworkNodes(Network* network) noexcept {
    delete network;
}

Node* getShadingNetworkNode(Network* network, const char* name) {
    if (!network) {
        return nullptr;
    }
    const auto found = network->nodes.find(name);
    return found == network->nodes.end() ? nullptr : new Node(found->second);
}

/// A text of a node or a connection; "" of null.
template <auto text, class Handle>
const char* textOf(Handle* handle) noexcept {
    return handle ? ((*handle->description).*text)().c_str() : "";
}

template <Names names>
unsigned nameCount(Node* node) noexcept {
    return node ? static_cast<unsigned>(((*node->description).*names)().size()) : 0;
}

template <Names names>
const char* nameAt(Node* node, unsigned index) noexcept {
    return node ? ((*node->description).*names)()[index].c_str() : "";
}

OvAttributeStruct* getShadingNodeParameter(Node* node, const char* name) {
    return node ? node->description->getParameter(name).detach() : nullptr;
}

Connection* getShadingNodeConnection(Node* node, const char* name) {
    auto connection = node ? node->description->getConnection(name) : nullptr;
    return connection ? new Connection(std::move(connection)) : nullptr;
}

bool isShadingNodeValid(Node* node) noexcept {
    return node && node->description->isValid();
}

/// The null connection is taken for a valid one, and the null node is not: plug-ins rely on both.
bool isConnectionValid(Connection* connection) noexcept {
    return !connection || connection->description->isValid();
}

void setNodeEntries(OvRenderOutputUtilsSuite& suite) {
    suite.retainShadingNode = retainHandle<Node>;
    suite.releaseShadingNode = releaseHandle<Node>;
    suite.getShadingNodeName = textOf<&ShadingNodeDescription::getName, Node>;
    suite.getShadingNodeType = textOf<&ShadingNodeDescription::getType, Node>;
    suite.getShadingNodeParameterCount = nameCount<kParameterNames>;
    suite.getShadingNodeParameterName = nameAt<kParameterNames>;
    suite.getShadingNodeParameter = getShadingNodeParameter;
    suite.getShadingNodeConnectionCount = nameCount<kConnectionNames>;
    suite.getShadingNodeConnectionName = nameAt<kConnectionNames>;
    suite.getShadingNodeConnection = getShadingNodeConnection;
    suite.isShadingNodeValid = isShadingNodeValid;
}

void setConnectionEntries(OvRenderOutputUtilsSuite& suite) {
    using Description = ShadingNodeConnectionDescription;
    suite.retainShadingNodeConnection = retainHandle<Connection>;
    suite.releaseShadingNodeConnection = releaseHandle<Connection>;
    suite.getConnectionName = textOf<&Description::getName, Connection>;
    suite.getConnectionNodeName = textOf<&Description::getConnectedNodeName, Connection>;
    suite.getConnectionPortName = textOf<&Description::getConnectedPortName, Connection>;
    suite.isConnectionValid = isConnectionValid;
}

}  // namespace

void setShadingNodeEntries(OvRenderOutputUtilsSuite& suite) {
    suite.getShadingNetworkNodesFromAttr = getShadingNetworkNodesFromAttr;
    suite.getShadingNetworkNodesFromIterator = getShadingNetworkNodesFromIterator;
    suite.freeShadingNetworkNodes = freeShadingNetworkNodes;
    suite.getShadingNetworkNode = getShadingNetworkNode;
    setNodeEntries(suite);
    setConnectionEntries(suite);
}

}  // namespace SYLVAR
