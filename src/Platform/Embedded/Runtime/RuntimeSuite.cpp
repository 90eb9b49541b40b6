// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/Configuration.h>
#include <SylvarPlatform/GroupAttribute.h>
#include <SylvarPlatform/suites/RuntimeSuite.h>

#include "Platform/Embedded/Runtime/Budget.h"
#include "Platform/Embedded/Runtime/Client.h"
#include "Platform/Embedded/Runtime/Queries.h"
#include "Platform/Embedded/Runtime/Runtime.h"
#include "Platform/Embedded/Runtime/RuntimePlugin.h"
#include "Platform/Embedded/Runtime/Transaction.h"

#include <cstddef>
#include <exception>
#include <memory>
#include <string>
#include <string_view>

namespace Embedded = Sylvar3::internal::OvSylvar::Embedded;

struct OvRuntimeStruct {
    std::shared_ptr<Embedded::Runtime> runtime;
};

struct OvRuntimeTransactionStruct {
    Embedded::Transaction transaction;
    std::shared_ptr<Embedded::Runtime> runtime;
};

struct OvRuntimeClientStruct {
    std::shared_ptr<Embedded::Client> client;
};

namespace Sylvar3::internal::OvSylvar::Embedded {

namespace {

using OvAttribute::Attribute;
using OvAttribute::castAttribute;
using OvAttribute::GroupAttribute;

constexpr std::int32_t kAnswered = 0;

/// The status of a query whose answer could not be made.
constexpr std::int32_t kQueryFailed = 2;

std::string_view viewOf(const char* text, std::int64_t length) {
    return length < 1 ? std::string_view()
                      : std::string_view(text, static_cast<std::size_t>(length));
}

OvRuntimeStruct* createRuntime() {
    applyConfiguredBudget();
    return new OvRuntimeStruct{std::make_shared<Runtime>()};
}

void releaseRuntime(OvRuntimeStruct* runtime) {
    delete runtime;
}

OvRuntimeTransactionStruct* createTransaction(OvRuntimeStruct* runtime) {
    return new OvRuntimeTransactionStruct{{}, runtime->runtime};
}

void releaseTransaction(OvRuntimeTransactionStruct* transaction) {
    delete transaction;
}

void commit(OvRuntimeStruct* /*runtime*/, OvRuntimeTransactionStruct* transaction) {
    transaction->transaction.commit();
}

void evict(OvRuntimeStruct* runtime, const char* path, std::int64_t length) {
    runtime->runtime->evict(viewOf(path, length));
}

void finalize(OvRuntimeStruct* runtime) {
    runtime->runtime->finalize();
}

void queryRuntimeInfo(OvRuntimeStruct* runtime,
                      const char* name,
                      std::uint64_t nameLength,
                      void* context,
                      OvRuntimeCompletion completion) {
    // Somebody waits for the completion: it is called whatever happens.
    std::string answer;
    std::int32_t status = kQueryFailed;
    try {
        status = answerQuery(*runtime->runtime, std::string_view(name, nameLength), answer);
    } catch (const std::exception&) {
        answer.clear();
    }
    completion(status, answer.data(), answer.size(), context);
}

OvRuntimeOpStruct* createOp(OvRuntimeTransactionStruct* transaction) {
    return transaction->transaction.createOp().release();
}

void releaseOp(OvRuntimeOpStruct* op) {
    delete op;
}

std::int32_t getOpId(OvRuntimeOpStruct* op) {
    return op->id;
}

void setOpArgs(OvRuntimeTransactionStruct* transaction,
               OvRuntimeOpStruct* op,
               const char* opType,
               std::int64_t length,
               OvAttributeStruct* args) {
    transaction->transaction.setArguments(
        *op, viewOf(opType, length), castAttribute<GroupAttribute>(Attribute::share(args)));
}

void setOpInputs(OvRuntimeTransactionStruct* transaction,
                 OvRuntimeOpStruct* op,
                 OvRuntimeOpStruct* const* inputs,
                 std::int64_t count) {
    transaction->transaction.setInputs(
        *op, inputs, count < 0 ? 0 : static_cast<std::size_t>(count));
}

OvRuntimeOpStruct* deserializeOps(OvRuntimeTransactionStruct* transaction,
                                  void* stream,
                                  OvReadFunction read) {
    return transaction->transaction.deserialize(stream, read).release();
}

OvRuntimeClientStruct* createClient(OvRuntimeTransactionStruct* transaction) {
    return new OvRuntimeClientStruct{std::make_shared<Client>(transaction->runtime)};
}

void releaseClient(OvRuntimeClientStruct* client) {
    delete client;
}

void setClientOp(OvRuntimeTransactionStruct* transaction,
                 OvRuntimeClientStruct* client,
                 OvRuntimeOpStruct* op) {
    transaction->transaction.setClientOp(client->client, op);
}

OvAttributeStruct* cookLocation(OvRuntimeClientStruct* client,
                                const char* path,
                                std::int64_t length) {
    return client->client->cook(viewOf(path, length)).detach();
}

std::uint8_t getCachedLocation(OvRuntimeClientStruct* client,
                               const char* path,
                               std::int64_t length,
                               OvAttributeStruct** location) {
    Location found;
    if (!client->client->findCooked(viewOf(path, length), found)) {
        return 0;
    }
    *location = found.detach();
    return 1;
}

void traceAttribute(OvRuntimeClientStruct* client,
                    const char* path,
                    std::int64_t length,
                    const char* name,
                    std::int64_t nameLength,
                    void* context,
                    OvRuntimeCompletion completion) {
    std::string answer;
    try {
        answer = jsonOf(client->client->trace(viewOf(path, length), viewOf(name, nameLength)));
    } catch (const std::exception& error) {
        const std::string_view reason = error.what();
        return completion(kQueryFailed, reason.data(), reason.size(), context);
    }
    completion(kAnswered, answer.data(), answer.size(), context);
}

const OvRuntimeSuite kSuite = {
    createRuntime, releaseRuntime, createTransaction, releaseTransaction, commit,
    evict,         finalize,       queryRuntimeInfo,  createOp,           releaseOp,
    getOpId,       setOpArgs,      setOpInputs,       deserializeOps,     createClient,
    releaseClient, setClientOp,    cookLocation,      getCachedLocation,  traceAttribute,
};
static_assert(sizeof(OvRuntimeSuite) == 20 * sizeof(void*));

OvPluginStruct plugin = {
    sizeof(OvPluginStruct),
    OV_PLUGIN_VERSION,
    "EmbeddedRuntime",
    OV_RUNTIME_API_NAME,
    OV_RUNTIME_API_VERSION,
    0,
    nullptr,
    [] { return static_cast<const void*>(&kSuite); },
    nullptr,
};

}  // namespace

OvPluginStruct* runtimePlugin() {
    return &plugin;
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
