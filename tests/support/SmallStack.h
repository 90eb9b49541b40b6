// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <pthread.h>

namespace ovtest {

/// Runs `action` on a thread whose stack would not hold a recursion.
template <class Action>
void onSmallStack(Action action) {
    pthread_attr_t attributes;
    ASSERT_EQ(0, pthread_attr_init(&attributes));
    ASSERT_EQ(0, pthread_attr_setstacksize(&attributes, std::size_t{256} * 1024));
    pthread_t thread{};
    const auto run = [](void* argument) -> void* {
        (*static_cast<Action*>(argument))();
        return nullptr;
    };
    ASSERT_EQ(0, pthread_create(&thread, &attributes, run, &action));
    ASSERT_EQ(0, pthread_join(thread, nullptr));
    pthread_attr_destroy(&attributes);
}

}  // namespace ovtest
