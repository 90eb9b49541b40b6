// SPDX-License-Identifier: Apache-2.0
#pragma once

/// Marks what `libSylvarPlatform` exports; all else is hidden.
#define SYLVAR_PLATFORM_API __attribute__((visibility("default")))
