// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupBuilder.h>
#include <SylvarPlatform/SylvarRuntime.h>
#include <SylvarPlatform/SylvarServices.h>

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace ovtest {

using Sylvar3::internal::OvSylvar::SylvarRuntime;

/// An op tree in words; the op named last is the terminal op.
///
///     OpTree().op("gen", "generate", Args().set("depth", 2)).op("set", "setAttributes", ...,
///     {"gen"})
class OpTree {
public:
    using GroupAttribute = Sylvar3::internal::OvAttribute::GroupAttribute;
    using GroupBuilder = Sylvar3::internal::OvAttribute::GroupBuilder;
    using StringAttribute = Sylvar3::internal::OvAttribute::StringAttribute;

    OpTree& op(const std::string& name,
               const std::string& type,
               const GroupAttribute& arguments = GroupAttribute(),
               const std::vector<std::string>& inputs = {}) {
        ops_.push_back({name, type, arguments, inputs});
        return *this;
    }

    /// The group that describes it.
    GroupAttribute group() const {
        GroupBuilder tree(GroupBuilder::Mode::Flat);
        for (const Op& op : ops_) {
            GroupBuilder one(GroupBuilder::Mode::Flat);
            one.set("opType", StringAttribute(op.type));
            if (op.arguments) {
                one.set("opArgs", op.arguments);
            }
            if (!op.inputs.empty()) {
                one.set("opInputs", StringAttribute(op.inputs));
            }
            tree.set(op.name, one.build());
        }
        return tree.build();
    }

    /// A client of a runtime of its own that looks at the last op.
    std::shared_ptr<SylvarRuntime::Client> open() const {
        return open(Sylvar3::OvSylvarServicesHost::v1::Sylvar().createRuntime());
    }

    std::shared_ptr<SylvarRuntime::Client> open(
        const std::shared_ptr<SylvarRuntime>& runtime) const {
        const auto transaction = runtime->createTransaction();
        std::map<std::string, std::shared_ptr<SylvarRuntime::Op>> byName;
        std::shared_ptr<SylvarRuntime::Op> last;
        for (const Op& op : ops_) {
            last = byName[op.name] = transaction->createOp();
            transaction->setOpArgs(last, op.type, op.arguments);
        }
        for (const Op& op : ops_) {
            std::vector<std::shared_ptr<SylvarRuntime::Op>> inputs;
            for (const std::string& input : op.inputs) {
                inputs.push_back(byName[input]);
            }
            transaction->setOpInputs(byName[op.name], inputs);
        }
        const auto client = transaction->createClient();
        transaction->setClientOp(client, last);
        runtime->commit(transaction);
        return client;
    }

private:
    struct Op {
        std::string name;
        std::string type;
        GroupAttribute arguments;
        std::vector<std::string> inputs;
    };

    std::vector<Op> ops_;
};

/// The arguments of an op; of two with one name the later one.
class Args {
public:
    using Attribute = Sylvar3::internal::OvAttribute::Attribute;
    using GroupAttribute = Sylvar3::internal::OvAttribute::GroupAttribute;
    using GroupBuilder = Sylvar3::internal::OvAttribute::GroupBuilder;

    Args& set(const std::string& name, const Attribute& value) {
        values_.emplace_back(name, value);
        return *this;
    }
    Args& set(const std::string& name, const char* value) {
        return set(name, Sylvar3::internal::OvAttribute::StringAttribute(value));
    }
    Args& set(const std::string& name, const std::string& value) {
        return set(name, Sylvar3::internal::OvAttribute::StringAttribute(value));
    }
    Args& set(const std::string& name, const std::vector<std::string>& values) {
        return set(name, Sylvar3::internal::OvAttribute::StringAttribute(values));
    }
    Args& set(const std::string& name, int value) {
        return set(name, Sylvar3::internal::OvAttribute::IntAttribute(value));
    }

    operator GroupAttribute() const {
        GroupBuilder builder(GroupBuilder::Mode::Flat);
        for (const auto& [name, value] : values_) {
            builder.set(name, value);
        }
        return builder.build();
    }

private:
    std::vector<std::pair<std::string, Attribute>> values_;
};

}  // namespace ovtest
