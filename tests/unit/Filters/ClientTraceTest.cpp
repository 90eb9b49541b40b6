// SPDX-License-Identifier: Apache-2.0
// How a client asks its runtime where an attribute comes from.
#include <SylvarPlatform/SylvarServices.h>

#include "support/RuntimeTest.h"

#include <memory>
#include <stdexcept>

using namespace ovtest;
using testing::ElementsAre;

namespace {

class ClientTrace : public RuntimeTest {
protected:
    using SylvarRuntime = Sylvar3::internal::OvSylvar::SylvarRuntime;

    std::shared_ptr<SylvarRuntime::Client> client = Sylvar3::OvSylvarServicesHost::v1::Sylvar()
                                                        .createRuntime()
                                                        ->createTransaction()
                                                        ->createClient();
};

}  // namespace

TEST_F(ClientTrace, HandsPathAndNameToTheRuntimeAndItsAnswerBack) {
    fake.answer("traceAttribute", 0, "{}");
    fake.take();
    const auto trace = client->traceAttribute("/root/a", "light.exposure");
    EXPECT_EQ("{}", trace.json);
    EXPECT_EQ("", trace.error);
    EXPECT_THAT(fake.take(), ElementsAre("traceAttribute c1 /root/a 'light.exposure'"));
}

TEST_F(ClientTrace, WaitsForAnAnswerFromAnotherThread) {
    fake.answerOnAnotherThread();
    fake.answer("traceAttribute", 0, "{\"steps\": []}");
    EXPECT_EQ("{\"steps\": []}", client->traceAttribute("/root", "").json);
}

TEST_F(ClientTrace, TellsWhyThereIsNoAnswer) {
    EXPECT_EQ("the runtime has no answer", client->traceAttribute("/root", "a").error);
    fake.answer("traceAttribute", 3, "too tired");
    const auto trace = client->traceAttribute("/root", "a");
    EXPECT_EQ("too tired", trace.error);
    EXPECT_EQ("", trace.json);
}

TEST_F(ClientTrace, TellsOfARuntimeThatCannotTell) {
    OvRuntimeSuite suite = *client->getRuntime()->suite;
    suite.traceAttribute = nullptr;
    const auto runtime = std::make_shared<SylvarRuntime>(suite.createRuntime(), &suite);
    const auto trace = runtime->createTransaction()->createClient()->traceAttribute("/root", "a");
    EXPECT_EQ("the runtime cannot tell where attributes come from", trace.error);
    EXPECT_EQ("", trace.json);
}

TEST_F(ClientTrace, LetsWhatTheRuntimeThrowsTravel) {
    fake.throwIn("traceAttribute");
    EXPECT_THROW(client->traceAttribute("/root", "a"), std::runtime_error);
}
