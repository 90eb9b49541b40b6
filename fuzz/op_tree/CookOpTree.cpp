// SPDX-License-Identifier: Apache-2.0
// Cooks an op tree: one that can be read from the bytes as a file, or one that is made up from
// them. Walks some of its scene, and drops and cooks again on the way. A location that the walk
// found must be there, with the same hash, whenever it is asked for, and must be listed by its
// parent.
#include <SylvarPlatform/AssetPlugin.h>
#include <SylvarPlatform/AttributeFile.h>
#include <SylvarPlatform/Logging.h>
#include <SylvarPlatform/SampleAccessor.h>
#include <SylvarPlatform/SylvarServices.h>

#include "GeneratedOps.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <string>
#include <vector>

namespace {

using namespace Sylvar3::internal::OvAttribute;
using Sylvar3::internal::OvSylvar::SylvarRuntime;
using Sylvar3::OvAssetHost::v1::AssetPlugin;
using Sylvar3::OvAssetHost::v1::OvAssetPluginManager;

constexpr std::size_t kMostLocations = 100;
constexpr std::size_t kMostChildren = 20;
constexpr std::size_t kMostBytes = 1 << 16;

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

/// No file of the machine is read.
class NoAssets final : public AssetPlugin {
    std::string resolveAsset(const std::string&, int, bool) override {
        return "/proc/self/no-such-asset";
    }
};

struct Bytes {
    const std::uint8_t* data;
    std::size_t size;

    static long read(void* stream, void* buffer, long size) {
        auto& self = *static_cast<Bytes*>(stream);
        const std::size_t count = std::min(static_cast<std::size_t>(size), self.size);
        std::memcpy(buffer, self.data, count);
        self.data += count;
        self.size -= count;
        return static_cast<long>(count);
    }
};

using Ops = std::vector<std::shared_ptr<SylvarRuntime::Op>>;

/// The last op of an op tree group, made op by op.
std::shared_ptr<SylvarRuntime::Op> makeOps(SylvarRuntime::Transaction& transaction,
                                           const GroupAttribute& tree) {
    const std::int64_t count = tree.getNumberOfChildren();
    Ops ops;
    for (std::int64_t i = 0; i < count; ++i) {
        ops.push_back(transaction.createOp());
    }
    for (std::int64_t i = 0; i < count; ++i) {
        const auto one = castAttribute<GroupAttribute>(tree.getChildByIndex(i));
        Ops inputs;
        const SampleAccessor<StringAttribute> names(one.getChildByName("opInputs"), 0.0F);
        for (const char* const name : names) {
            const long place = std::strtol(name + 2, nullptr, 10);
            inputs.push_back(place < count ? ops[static_cast<std::size_t>(place)] : nullptr);
        }
        transaction.setOpArgs(ops[static_cast<std::size_t>(i)],
                              one.getChild<StringAttribute>("opType").getValue(""),
                              one.getChildByName("opArgs"));
        transaction.setOpInputs(ops[static_cast<std::size_t>(i)], inputs);
    }
    return ops.empty() ? nullptr : ops.back();
}

std::vector<std::string> namesIn(const SylvarRuntime::LocationData& location) {
    const SampleAccessor<StringAttribute> names(location.getPotentialChildren(), 0.0F);
    return {names.begin(), names.end()};
}

void requireSame(const SylvarRuntime::LocationData& a, const SylvarRuntime::LocationData& b) {
    require(a.doesLocationExist() == b.doesLocationExist());
    require(!a.doesLocationExist() || a.getHash() == b.getHash());
}

void query(const SylvarRuntime& runtime, const std::string& name) {
    int answers = 0;
    runtime.suite->queryRuntimeInfo(
        runtime.handle,
        name.data(),
        name.size(),
        &answers,
        [](std::int32_t status, const char*, std::uint64_t, void* seen) {
            require(status == 0);
            ++*static_cast<int*>(seen);
        });
    require(answers == 1);
}

/// One location of a walk: cooked, looked up, now and then dropped and cooked again.
SylvarRuntime::LocationData visit(const SylvarRuntime::Client& client,
                                  const std::string& path,
                                  std::size_t step) {
    SylvarRuntime::LocationData location = client.cookLocation(path);
    const auto cached = client.getCachedLocation(path);
    require(cached.second);
    requireSame(location, cached.first);
    if (step % 7 == 3) {
        require(client.traceAttribute(path, "").error.empty());
    }
    if (step % 5 == 2) {
        client.getRuntime()->evict(path);
        requireSame(location, client.cookLocation(path));
    }
    if (step % 31 == 30) {
        client.getRuntime()->finalize();
        require(!client.getCachedLocation("/root").second);
        requireSame(location, client.cookLocation(path));
    }
    if (location.doesLocationExist()) {
        require(location.getAttrs().isValid() && location.getPotentialChildren().isValid());
    }
    return location;
}

void walk(const SylvarRuntime::Client& client) {
    std::deque<std::string> pending = {"/root", "/other", "/world", "/root/a/b"};
    for (std::size_t step = 0; step < kMostLocations && !pending.empty(); ++step) {
        const std::string path = std::move(pending.front());
        pending.pop_front();
        const SylvarRuntime::LocationData location = visit(client, path, step);
        if (!location.doesLocationExist()) {
            continue;
        }
        std::vector<std::string> names = namesIn(location);
        require(!client.cookLocation(path + "/").doesLocationExist());
        std::vector<std::string> sorted = names;
        std::sort(sorted.begin(), sorted.end());
        require(std::unique(sorted.begin(), sorted.end()) == sorted.end());
        names.resize(std::min(names.size(), kMostChildren));
        for (const std::string& name : names) {
            require(!name.empty() && name.find('/') == std::string::npos);
            pending.push_back(path + "/" + name);
        }
        const std::string unlisted = "no such name";
        if (std::find(sorted.begin(), sorted.end(), unlisted) == sorted.end()) {
            require(!client.cookLocation(path + "/" + unlisted).doesLocationExist());
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* /*count*/, char*** /*arguments*/) {
    static NoAssets assets;
    OvAssetPluginManager::setDefaultAssetPlugin(&assets);
    OvLoggingHost::setLevel("", OvLoggingHost::LogLevel::Off);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > kMostBytes) {
        return 0;
    }
    const auto runtime = Sylvar3::OvSylvarServicesHost::v1::Sylvar().createRuntime();
    const auto transaction = runtime->createTransaction();
    Bytes bytes{data, size};
    auto op = transaction->deserializeOps(&bytes, Bytes::read);
    if (op->id < 0) {
        op = makeOps(*transaction, opTreeFromBytes(data, size));
    }
    const auto client = transaction->createClient();
    transaction->setClientOp(client, op);
    runtime->commit(transaction);
    walk(*client);
    for (const char* const name :
         {"getAnonymousOpTree", "getAnonymousOpRegistry", "getStatistics"}) {
        query(*runtime, name);
    }
    return 0;
}
