// SPDX-License-Identifier: Apache-2.0
#pragma once

/// Marks what `libOvSylvarProducers` exports; all else is hidden.
#define OV_SYLVAR_PRODUCERS_API __attribute__((visibility("default")))
