// SPDX-License-Identifier: Apache-2.0
#pragma once

/// Marks what `libResolutionTableOv` exports; all else is hidden.
#define RESOLUTION_TABLE_OV_API __attribute__((visibility("default")))
