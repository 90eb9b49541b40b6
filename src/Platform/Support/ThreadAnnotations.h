// SPDX-License-Identifier: Apache-2.0
#pragma once

/// Lock rules that clang checks while compiling (-Wthread-safety); nothing for other compilers.
#if defined(__clang__)
#define OV_THREAD_ANNOTATION(x) __attribute__((x))
#else
#define OV_THREAD_ANNOTATION(x)
#endif

/// On a class: it is a lock, or a scope that holds one.
#define OV_CAPABILITY(name) OV_THREAD_ANNOTATION(capability(name))
#define OV_SCOPED_CAPABILITY OV_THREAD_ANNOTATION(scoped_lockable)

/// On data: touched (or, for the second, what it points to is touched) only under this lock.
#define OV_GUARDED_BY(mutex) OV_THREAD_ANNOTATION(guarded_by(mutex))
#define OV_PT_GUARDED_BY(mutex) OV_THREAD_ANNOTATION(pt_guarded_by(mutex))

/// On functions: the caller holds these locks; the caller does not hold them.
#define OV_REQUIRES(...) OV_THREAD_ANNOTATION(requires_capability(__VA_ARGS__))
#define OV_EXCLUDES(...) OV_THREAD_ANNOTATION(locks_excluded(__VA_ARGS__))

/// On functions: they take or give back these locks.
#define OV_ACQUIRE(...) OV_THREAD_ANNOTATION(acquire_capability(__VA_ARGS__))
#define OV_RELEASE(...) OV_THREAD_ANNOTATION(release_capability(__VA_ARGS__))
#define OV_TRY_ACQUIRE(...) OV_THREAD_ANNOTATION(try_acquire_capability(__VA_ARGS__))

/// On a function whose locking the analysis cannot follow; say why beside it.
#define OV_NO_THREAD_SAFETY_ANALYSIS OV_THREAD_ANNOTATION(no_thread_safety_analysis)
