// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Runtime/OpGraph.h"

#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupBuilder.h>
#include <SylvarPlatform/SampleAccessor.h>

#include "Platform/Embedded/Attributes/Values/Hashing.h"
#include "Platform/Embedded/Runtime/Interner.h"
#include "Platform/Embedded/Runtime/KindName.h"
#include "Platform/Embedded/Runtime/MountPath.h"
#include "Platform/Embedded/Runtime/OpTypeTable.h"
#include "Platform/Embedded/Runtime/PassingOps.h"
#include "Platform/Embedded/Runtime/RuntimeLog.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace Sylvar3::internal::OvSylvar::Embedded {

using OvAttribute::castAttribute;
using OvAttribute::GroupAttribute;
using OvAttribute::GroupBuilder;
using OvAttribute::Hash;
using OvAttribute::IntAttribute;
using OvAttribute::StringAttribute;

namespace {

/// Arguments that are about the op, and not for it.
constexpr const char* kEnabled = "enabled";
constexpr const char* kNote = "note";

/// The others; null when there are none, so that no arguments are the same as an empty group.
GroupAttribute argumentsForType(const GroupAttribute& arguments) {
    if (!arguments) {
        return arguments;
    }
    GroupBuilder builder(GroupBuilder::Mode::Flat);
    const GroupAttribute rest = builder.update(arguments).remove(kEnabled).remove(kNote).build();
    return rest.getNumberOfChildren() == 0 ? GroupAttribute() : rest;
}

/// What is wrong with the argument that tells whether an op works; empty when nothing is.
std::string faultOfEnabled(const GroupAttribute& arguments) {
    const OvAttribute::Attribute enabled = arguments.getChildByName(kEnabled);
    if (!enabled || enabled.getType() == OV_ATTRIBUTE_INT) {
        return {};
    }
    return std::string("argument \"") + kEnabled + "\": expected int, found " +
           kindName(enabled.getType());
}

/// Where errors of the whole op show.
std::string placeOfErrors(const GroupAttribute& arguments) {
    for (const char* const name : {"at", "path"}) {
        std::string path = arguments.getChild<StringAttribute>(name).getValue("");
        if (isLocationPath(path)) {
            return path;
        }
    }
    return "/root";
}

std::vector<std::string> kindsOf(const GroupAttribute& arguments) {
    std::vector<std::string> kinds;
    for (std::int64_t i = 0; i < arguments.getNumberOfChildren(); ++i) {
        kinds.emplace_back(kindName(arguments.getChildByIndex(i).getType()));
    }
    return kinds;
}

/// The bytes that tell one op from another.
class Identity {
public:
    void add(std::string_view text) {
        const std::uint64_t length = text.size();
        addBytes(&length, sizeof length);
        bytes_.append(text);
    }
    void add(const Hash& hash) {
        const std::uint64_t words[] = {hash.word(0), hash.word(1)};
        addBytes(words, sizeof words);
    }
    Hash hash() const {
        return Hash(OvAttribute::Embedded::digestOf(bytes_.data(), bytes_.size()));
    }

private:
    void addBytes(const void* bytes, std::size_t size) {
        bytes_.append(static_cast<const char*>(bytes), size);
    }

    std::string bytes_;
};

/// Interns a list of ops, each after its inputs, with a stack of its own.
class Interning {
public:
    Interning(const std::vector<OpSpec>& specs, const std::string& origin)
        : specs_(specs), origin_(origin), states_(specs.size()), ops_(specs.size()) {}

    std::vector<std::shared_ptr<InternedOp>> run() {
        for (std::size_t i = 0; i < specs_.size(); ++i) {
            visit(i);
        }
        return std::move(ops_);
    }

private:
    enum class Phase { Untouched, Open, Done };
    struct State {
        Phase phase = Phase::Untouched;
        std::size_t nextInput = 0;
        InternedOp::Inputs inputs;
        std::vector<std::size_t> missingInputs;  ///< Counted from 1.
        std::string fault;
    };

    void visit(std::size_t first) {
        std::vector<std::size_t> stack;
        open(first, stack);
        while (!stack.empty()) {
            const std::size_t place = stack.back();
            if (states_[place].nextInput == inputCount(place)) {
                stack.pop_back();
                close(place);
            } else {
                takeInput(place, stack);
            }
        }
    }

    /// Whether the op is its first input, whatever the others are.
    bool isPassing(std::size_t place) const {
        const OpSpec& spec = specs_[place];
        return spec.type.empty() ||
               spec.arguments.getChild<IntAttribute>(kEnabled).getValue(1) == 0;
    }

    std::size_t inputCount(std::size_t place) const {
        const std::size_t count = specs_[place].inputs.size();
        return isPassing(place) ? std::min<std::size_t>(count, 1) : count;
    }

    void open(std::size_t place, std::vector<std::size_t>& stack) {
        if (states_[place].phase == Phase::Untouched) {
            states_[place].phase = Phase::Open;
            states_[place].fault = specs_[place].fault;
            stack.push_back(place);
        }
    }

    /// Takes the next input when it is there already; otherwise opens it, to come back.
    void takeInput(std::size_t place, std::vector<std::size_t>& stack) {
        State& state = states_[place];
        const std::size_t input = specs_[place].inputs[state.nextInput];
        if (input != OpSpec::kNoInput && states_[input].phase == Phase::Untouched) {
            return open(input, stack);
        }
        ++state.nextInput;
        if (input == OpSpec::kNoInput) {
            state.missingInputs.push_back(state.nextInput);
            state.inputs.push_back(emptyOp());
        } else if (states_[input].phase == Phase::Open) {
            state.fault = "cycle: the op is an input of itself, by " + placeOf(input).text();
            state.inputs.push_back(emptyOp());
        } else {
            state.inputs.push_back(ops_[input]);
        }
    }

    void close(std::size_t place) {
        State& state = states_[place];
        state.phase = Phase::Done;
        if (state.fault.empty()) {
            state.fault = faultOfEnabled(specs_[place].arguments);
        }
        const bool isFirst = isPassing(place) && state.fault.empty();
        ops_[place] = isFirst ? firstOf(place, state) : make(place, std::move(state));
    }

    std::shared_ptr<InternedOp> firstOf(std::size_t place, const State& state) const {
        warnOfMissingInputs(place, state);
        return state.inputs.empty() ? emptyOp() : state.inputs.front();
    }

    std::shared_ptr<InternedOp> make(std::size_t place, State state) {
        const OpSpec& spec = specs_[place];
        const GroupAttribute arguments = argumentsForType(spec.arguments);
        OpTypeTable& types = OpTypeTable::instance();
        const auto [type, typeIndex] =
            state.fault.empty() ? types.findOrAdd(spec.type, state.fault) : types.find(spec.type);

        Identity identity;
        identity.add(spec.type);
        identity.add(arguments.getHash());
        identity.add(state.fault);
        identity.add(type ? type->identity(arguments) : std::string());
        for (const std::shared_ptr<InternedOp>& input : state.inputs) {
            identity.add(input->hash());
        }
        if (std::shared_ptr<InternedOp> present = Interner::instance().find(identity.hash())) {
            return present;
        }
        warnOfMissingInputs(place, state);
        InternedOp::Parts parts;
        parts.typeName = typeNameOf(place);
        parts.typeIndex = typeIndex;
        parts.place = placeOf(place);
        parts.at = placeOfErrors(arguments);
        parts.argumentKinds = kindsOf(arguments);
        parts.hash = identity.hash();
        parts.body = makeBody(type, arguments, state, parts);
        parts.inputs = std::move(state.inputs);
        return Interner::instance().intern(std::move(parts));
    }

    std::unique_ptr<const OpBody> makeBody(const OpType* type,
                                           const GroupAttribute& arguments,
                                           const State& state,
                                           const InternedOp::Parts& parts) {
        try {
            if (!state.fault.empty()) {
                throw OpError(state.fault);
            }
            checkInputs(type->schema(), state.inputs.size());
            return type->make(arguments, state.inputs.size(), parts.place.text());
        } catch (const OpError& error) {
            return makeFaultyOp(parts.at, error.what());
        }
    }

    static void checkInputs(const OpSchema& schema, std::size_t count) {
        const auto have = static_cast<std::int64_t>(count);
        if (have < schema.fewestInputs) {
            throw OpError("has " + std::to_string(have) + " inputs, and needs at least " +
                          std::to_string(schema.fewestInputs));
        }
        if (have > schema.mostInputs) {
            throw OpError("has " + std::to_string(have) + " inputs, and takes at most " +
                          std::to_string(schema.mostInputs));
        }
    }

    std::string typeNameOf(std::size_t place) const {
        return specs_[place].type.empty() ? "op" : specs_[place].type;
    }

    OpPlace placeOf(std::size_t place) const {
        return {specs_[place].name, place + 1, specs_.size(), origin_};
    }

    /// Not for an op that another runtime has, and was warned of.
    void warnOfMissingInputs(std::size_t place, const State& state) const {
        for (const std::size_t input : state.missingInputs) {
            OV_LOG(runtimeLogger(),
                   warn,
                   typeNameOf(place) << " (" << placeOf(place).text() << "): input " << input
                                     << " is not there, and reads as an empty scene");
        }
    }

    const std::vector<OpSpec>& specs_;
    const std::string& origin_;
    std::vector<State> states_;
    std::vector<std::shared_ptr<InternedOp>> ops_;
};

}  // namespace

std::vector<std::shared_ptr<InternedOp>> internOps(const std::vector<OpSpec>& specs,
                                                   const std::string& origin) {
    return Interning(specs, origin).run();
}

std::shared_ptr<InternedOp> emptyOp() {
    Identity identity;
    identity.add("");
    if (std::shared_ptr<InternedOp> present = Interner::instance().find(identity.hash())) {
        return present;
    }
    InternedOp::Parts parts;
    parts.typeName = "op";
    parts.at = "/root";
    parts.hash = identity.hash();
    parts.body = makeEmptyScene();
    return Interner::instance().intern(std::move(parts));
}

std::shared_ptr<InternedOp> internBody(const std::string& typeName,
                                       const std::string& identity,
                                       const std::string& origin,
                                       const std::function<std::unique_ptr<const OpBody>()>& make) {
    Identity whole;
    whole.add(typeName);
    whole.add("of its own identity");
    whole.add(identity);
    if (std::shared_ptr<InternedOp> present = Interner::instance().find(whole.hash())) {
        return present;
    }
    InternedOp::Parts parts;
    parts.typeName = typeName;
    parts.typeIndex = OpTypeTable::instance().find(typeName).second;
    parts.place.file = origin;
    parts.at = "/root";
    parts.hash = whole.hash();
    parts.body = make();
    return Interner::instance().intern(std::move(parts));
}

std::vector<OpSpec> readOpTree(const GroupAttribute& tree) {
    const std::int64_t count = tree.getNumberOfChildren();
    std::unordered_map<std::string_view, std::size_t> places;
    for (std::int64_t i = 0; i < count; ++i) {
        places.emplace(tree.getChildNameView(i), static_cast<std::size_t>(i));
    }
    std::vector<OpSpec> specs(static_cast<std::size_t>(count));
    for (std::int64_t i = 0; i < count; ++i) {
        const auto child = castAttribute<GroupAttribute>(tree.getChildByIndex(i));
        OpSpec& spec = specs[static_cast<std::size_t>(i)];
        spec.name = tree.getChildName(i);
        if (!child) {
            spec.fault = "the op \"" + spec.name + "\" is no group";
            continue;
        }
        spec.type = child.getChild<StringAttribute>("opType").getValue("");
        spec.arguments = child.getChild<GroupAttribute>("opArgs");
        const OvAttribute::SampleAccessor<StringAttribute> inputs(child.getChildByName("opInputs"),
                                                                  0.0F);
        for (const char* const name : inputs) {
            const auto found = places.find(name);
            spec.inputs.push_back(found == places.end() ? OpSpec::kNoInput : found->second);
        }
    }
    return specs;
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
