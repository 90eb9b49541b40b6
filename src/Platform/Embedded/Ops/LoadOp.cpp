// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/AttributeFile.h>

#include "Platform/Embedded/Ops/Arguments.h"
#include "Platform/Embedded/Ops/Files/AssetPath.h"
#include "Platform/Embedded/Ops/Files/FileIdentity.h"
#include "Platform/Embedded/Ops/OpTypes.h"
#include "Platform/Embedded/Ops/SceneOp.h"
#include "Platform/Embedded/Runtime/Cook.h"
#include "Platform/Embedded/Runtime/MountPath.h"
#include "Platform/Embedded/Runtime/OpGraph.h"
#include "Platform/Support/Mutex.h"
#include "Platform/Support/OnceBuilt.h"

#include <algorithm>
#include <filesystem>
#include <new>
#include <optional>
#include <system_error>
#include <utility>

namespace Sylvar3::internal::OvSylvar::Embedded {

using OvAttribute::AttributeContent;
using OvAttribute::AttributeReadResult;
using OvAttribute::castAttribute;
using OvAttribute::GroupAttribute;
using Support::Mutex;
using Support::MutexLock;

namespace {

constexpr const char* kLoadedTop = "/root";

/// What a file holds: the last op of its tree, or the op of its stored scene.
struct Content {
    std::shared_ptr<InternedOp> top;
    const SceneBody* scene = nullptr;  ///< Of a stored scene; the op's.
};

/// A pipe would be waited for, and a device may have no end. Throws `OpError`.
void checkIsPlain(const std::string& file) {
    std::error_code unknown;
    const std::filesystem::file_status status = std::filesystem::status(file, unknown);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
        throw OpError(file + ": it is no plain file");
    }
}

/// Throws `OpError`.
Content readContent(const std::string& file, const FileIdentity& identity) {
    checkIsPlain(file);
    const AttributeReadResult result = OvAttribute::readAttributeFile(file);
    if (!result.error.empty()) {
        throw OpError(result.error);
    }
    if (result.content == AttributeContent::StaticScene) {
        const auto top = internBody("scene", identity.text(), file, [&] {
            return makeScene(castAttribute<GroupAttribute>(result.attribute), kLoadedTop);
        });
        return {top, static_cast<const SceneBody*>(&top->body())};
    }
    if (result.content != AttributeContent::OpTree) {
        throw OpError(file + ": holds neither an op tree nor a scene");
    }
    const std::vector<OpSpec> specs = readOpTree(castAttribute<GroupAttribute>(result.attribute));
    if (specs.empty()) {
        throw OpError(file + ": " + kNoOps);
    }
    return {internOps(specs, file).back(), nullptr};
}

class LoadOp final : public OpBody {
public:
    LoadOp(std::string file, std::string at) : file_(std::move(file)), mount_(std::move(at)) {}

    void cook(Cook& cook, LocationWriter& out) const override {
        switch (mount_.placeOf(cook.path())) {
            case MountPath::Place::Above:
                return out.setChildren({mount_.nextName(cook.path())});
            case MountPath::Place::Inside:
                return cookInside(cook, out);
            case MountPath::Place::Beside:
                return out.setAbsent();
        }
    }

    void collectOwnOps(std::vector<std::shared_ptr<InternedOp>>& ops) const override {
        const MutexLock lock(mutex_);
        if (loaded_.content.top) {
            ops.push_back(loaded_.content.top);
        }
    }

    bool hasChanged() const override {
        const std::optional<FileIdentity> known = identity();
        return known && !(FileIdentity(file_) == *known);
    }

    std::shared_ptr<const void> forget() const override {
        const MutexLock lock(mutex_);
        return std::exchange(loaded_, Loaded()).content.top;
    }

private:
    /// What the file held when it was read: ops, or what is wrong with it. While it is read, only
    /// which file that is: so that it is forgotten too when another file takes its place meanwhile.
    struct Loaded {
        bool isThere = false;
        FileIdentity identity{};
        Content content{};
        std::string fault{};
    };

    /// A stored scene has each location as it is; there is nothing to keep of it once more.
    void cookInside(Cook& cook, LocationWriter& out) const {
        const Content content = load();
        const std::string_view rest = mount_.rest(cook.path());
        if (content.scene) {
            return content.scene->cookBelow(rest, out);
        }
        std::string path = kLoadedTop;
        path += rest;
        out.pass(cook.read(*content.top, path));
    }

    /// Reads the file when it was not read before. Throws `OpError`.
    Content load() const OV_EXCLUDES(loading_, mutex_) {
        if (Content known = find(); known.top) {
            return known;
        }
        const MutexLock lock(loading_);
        if (Content known = find(); known.top) {
            return known;
        }
        Loaded loaded = begin();
        read(loaded);
        return keep(std::move(loaded));
    }

    /// Where memory runs out the file has no identity: any evict has it read again.
    void read(Loaded& loaded) const {
        try {
            loaded.content = readContent(file_, loaded.identity);
        } catch (const OpError& error) {
            loaded.fault = error.what();
        } catch (const std::bad_alloc&) {
            loaded.identity = FileIdentity();
            loaded.fault = file_ + ": there is not enough memory to read it";
            return;
        }
        if (!(FileIdentity(file_) == loaded.identity)) {
            loaded.content = {};
            loaded.fault = file_ + ": it changed while it was read";
        }
    }

    Loaded begin() const OV_EXCLUDES(mutex_) {
        Loaded loaded;
        loaded.isThere = true;
        loaded.identity = FileIdentity(file_);
        const MutexLock lock(mutex_);
        loaded_ = loaded;
        return loaded;
    }

    /// Of the file that was read, or is; none when none was.
    std::optional<FileIdentity> identity() const OV_EXCLUDES(mutex_) {
        const MutexLock lock(mutex_);
        return loaded_.isThere ? std::optional(loaded_.identity) : std::nullopt;
    }

    Content find() const OV_EXCLUDES(mutex_) {
        const MutexLock lock(mutex_);
        if (!loaded_.fault.empty()) {
            throw OpError(loaded_.fault);
        }
        return loaded_.content;
    }

    /// Ops that load one another would keep one another for ever: the last one of the round is told
    /// so instead. One lock for all, so that two of them do not close the round at once. Returns
    /// what was loaded: it is not kept when it was forgotten meanwhile. Throws `OpError`.
    Content keep(Loaded loaded) const OV_EXCLUDES(mutex_) {
        static Mutex linking;
        const MutexLock link(linking);
        if (loaded.content.top && reaches(loaded.content.top)) {
            loaded.content = {};
            loaded.fault = "cycle: " + file_ + " loads itself";
        }
        {
            const MutexLock lock(mutex_);
            if (loaded_.isThere) {
                loaded_ = loaded;
            }
        }
        if (!loaded.fault.empty()) {
            throw OpError(loaded.fault);
        }
        return loaded.content;
    }

    bool reaches(const std::shared_ptr<InternedOp>& top) const {
        const std::vector<std::shared_ptr<InternedOp>> ops = reachableOps({top});
        return std::any_of(ops.begin(), ops.end(), [this](const std::shared_ptr<InternedOp>& op) {
            return &op->body() == this;
        });
    }

    const std::string file_;
    const MountPath mount_;
    mutable Mutex loading_;
    mutable Mutex mutex_;  ///< Innermost.
    mutable Loaded loaded_ OV_GUARDED_BY(mutex_);
};

class LoadOpType final : public OpType {
public:
    const OpSchema& schema() const override { return schema_; }

    std::unique_ptr<const OpBody> make(const GroupAttribute& group,
                                       std::size_t /*inputCount*/,
                                       const std::string& /*place*/) const override {
        const Arguments arguments(schema_, group);
        const std::string file = arguments.getString("file", "");
        if (file.empty()) {
            Arguments::fail("file", "a file's name, found \"\"");
        }
        return std::make_unique<LoadOp>(assetPath(file), arguments.getPath("at", kLoadedTop));
    }

    std::string identity(const GroupAttribute& arguments) const override {
        const std::string file =
            arguments.getChild<OvAttribute::StringAttribute>("file").getValue("");
        return file.empty() ? file : FileIdentity(assetPath(file)).text();
    }

private:
    const OpSchema schema_ = {
        "load",
        "Another op tree, or a stored scene, from a file; read when it is first needed.",
        "The asset plug-in finds the file; ours looks along `SYLVAR_ASSET_PATH`. All "
        "that load one file share what is cooked of it. A file that cannot be read is "
        "an error at `at`; so is one that loads itself, directly or by way of others. A "
        "changed file is noticed by runtimes that are made after the change, and by "
        "others when they evict a location; one that changes while it is read is an error until "
        "then.",
        0,
        0,
        {
            {"file", "string", nullptr, "The file: an asset's name, or a path."},
            {"at", "string", kLoadedTop, "Where the file's location /root goes."},
        },
    };
};

}  // namespace

const OpType& loadOpType() {
    static Support::OnceBuilt<LoadOpType> type;
    return type.get();
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
