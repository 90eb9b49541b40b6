// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/OpTreeAttributeSource.h>
#include <SylvarPlatform/SampleAccessor.h>

#include <map>
#include <vector>

namespace SYLVAR {
namespace {

using Sylvar3::internal::OvAttribute::castAttribute;
using Sylvar3::internal::OvAttribute::getStringValue;
using Sylvar3::internal::OvAttribute::SampleAccessor;
using Sylvar3::internal::OvAttribute::StringAttribute;

using OpPtr = std::shared_ptr<SylvarRuntime::Op>;
using TransactionPtr = std::shared_ptr<SylvarRuntime::Transaction>;

/// All ops of a group, and the same by the names of the children.
struct Ops {
    std::vector<OpPtr> inOrder;
    std::map<std::string, OpPtr> byName;
};

/// Empty when the runtime has no op to give.
OpPtr createOp(const TransactionPtr& transaction, const GroupAttribute& child) {
    const std::string type = getStringValue(child.getChild<StringAttribute>("opType"), {}, false);
    OpPtr op = transaction->createOp();
    if (op) {
        transaction->setOpArgs(op, type, child.getChild<GroupAttribute>("opArgs"));
    }
    return op;
}

/// False when a child is no group or got no op; the ops before it are made by then.
bool createOps(const TransactionPtr& transaction, const GroupAttribute& tree, Ops& ops) {
    const std::int64_t count = tree.getNumberOfChildren();
    ops.inOrder.reserve(static_cast<std::size_t>(count));
    for (std::int64_t i = 0; i < count; ++i) {
        const auto child = castAttribute<GroupAttribute>(tree.getChildByIndex(i));
        const OpPtr op = child ? createOp(transaction, child) : nullptr;
        if (!op) {
            return false;
        }
        ops.inOrder.push_back(op);
        ops.byName[tree.getChildName(i)] = op;
    }
    return true;
}

/// A name that no child has gets an empty op, which the runtime is given as it is.
std::vector<OpPtr> inputsOf(const GroupAttribute& child, Ops& ops) {
    const SampleAccessor<StringAttribute> names(child.getChildByName("opInputs"), 0.0F);
    std::vector<OpPtr> inputs;
    inputs.reserve(static_cast<std::size_t>(names.end() - names.begin()));
    for (const char* const name : names) {
        inputs.push_back(ops.byName[name]);
    }
    return inputs;
}

}  // namespace

OpTreeAttributeSource::OpTreeAttributeSource(const GroupAttribute& itsAttribute)
    : AbstractOpTreeSource(itsAttribute.getHash().word(0)), attribute(itsAttribute) {}

OpTreeAttributeSource::~OpTreeAttributeSource() = default;

bool OpTreeAttributeSource::isValid(std::string* errorMessage) const {
    if (!attribute && errorMessage) {
        *errorMessage = "Invalid GroupAttribute provided.";
    }
    return attribute.isValid();
}

std::shared_ptr<SylvarRuntime::Op> OpTreeAttributeSource::getOp(
    const std::shared_ptr<SylvarRuntime::Transaction>& transaction) const {
    Ops ops;
    if (!createOps(transaction, attribute, ops) || ops.inOrder.empty()) {
        return {};
    }
    for (std::size_t i = 0; i < ops.inOrder.size(); ++i) {
        const auto child =
            castAttribute<GroupAttribute>(attribute.getChildByIndex(static_cast<std::int64_t>(i)));
        transaction->setOpInputs(ops.inOrder[i], inputsOf(child, ops));
    }
    return ops.inOrder.back();
}

std::string OpTreeAttributeSource::describe() const {
    return "GroupAttribute";
}

}  // namespace SYLVAR
