// SPDX-License-Identifier: Apache-2.0
// The process's mutexes fail here when they are told to: this program has functions of its own in
// the place of the system's.
#include <OvSylvarProducers/FlattenedMaterial.h>
#include <SylvarPlatform/DataAttribute.h>

#include "support/FakeProducer.h"

#include <boost/thread/exceptions.hpp>
#include <gtest/gtest.h>

#include <cerrno>
#include <dlfcn.h>
#include <pthread.h>

using namespace SYLVAR;
using Sylvar3::internal::OvAttribute::IntAttribute;

namespace {

/// How many calls of this thread go well before one fails; none fails below 0.
thread_local int locksToGo = -1;
thread_local int creationsToGo = -1;

bool isToFail(int& toGo) {
    return toGo >= 0 && toGo-- == 0;
}

template <class Function>
Function systems(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

/// Has no material, so that nothing but the cache is locked on its behalf.
GeometryProducerPtr bare() {
    return GeometryProducerPtr(new ovtest::FakeProducer("/root"));
}

bool isRemembered() {
    bool isRead = false;
    const boost::intrusive_ptr<ovtest::FakeProducer> again(new ovtest::FakeProducer("/root"));
    again->whenRead = [&] { isRead = true; };
    GetFlattenedMaterialAttr(GeometryProducerPtr(again), {"surface"});
    return !isRead;
}

template <class Action>
void expectLockError(int locksThatGoWell, Action action) {
    locksToGo = locksThatGoWell;
    try {
        action();
        ADD_FAILURE() << "nothing was thrown";
    } catch (const boost::lock_error& error) {
        EXPECT_EQ(EINVAL, error.native_error());
        EXPECT_STREQ("boost: mutex lock failed in pthread_mutex_lock: Invalid argument",
                     error.what());
    }
    locksToGo = -1;
}

}  // namespace

extern "C" int pthread_mutex_lock(pthread_mutex_t* mutex) noexcept {
    static const auto real = systems<int (*)(pthread_mutex_t*)>("pthread_mutex_lock");
    return isToFail(locksToGo) ? EINVAL : real(mutex);
}

extern "C" int pthread_mutex_init(pthread_mutex_t* mutex,
                                  const pthread_mutexattr_t* attributes) noexcept {
    static const auto real =
        systems<int (*)(pthread_mutex_t*, const pthread_mutexattr_t*)>("pthread_mutex_init");
    return isToFail(creationsToGo) ? EAGAIN : real(mutex, attributes);
}

TEST(FlattenedMaterialLock, IsMadeAnewAfterItCouldNotBeMade) {
    creationsToGo = 0;
    EXPECT_THROW(EmptyFlattenedMaterialCache(), boost::thread_resource_error);
    EXPECT_EQ(-1, creationsToGo);
    EmptyFlattenedMaterialCache();
    GetFlattenedMaterialAttr(bare(), {"surface"});
    EXPECT_TRUE(isRemembered());
}

TEST(FlattenedMaterialLock, ThatFailsAtTheLookUpTravels) {
    EmptyFlattenedMaterialCache();
    const GeometryProducerPtr location = bare();
    expectLockError(0, [&] { GetFlattenedMaterialAttr(location, {"surface"}); });
    EXPECT_FALSE(isRemembered());
}

TEST(FlattenedMaterialLock, ThatFailsAtTheStoreTravelsAndLeavesTheCacheAsItWas) {
    EmptyFlattenedMaterialCache();
    const GeometryProducerPtr location = bare();
    expectLockError(1, [&] { GetFlattenedMaterialAttr(location, {"surface"}); });
    EXPECT_FALSE(isRemembered());
}

TEST(FlattenedMaterialLock, ThatFailsWhenItIsEmptiedTravelsAndLeavesItAsItWas) {
    EmptyFlattenedMaterialCache();
    GetFlattenedMaterialAttr(bare(), {"surface"});
    expectLockError(0, [] { EmptyFlattenedMaterialCache(); });
    EXPECT_TRUE(isRemembered());
}
