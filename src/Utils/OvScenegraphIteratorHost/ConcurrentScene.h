// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/GeometryProducer.h>

#include <memory>
#include <string>

/// The scene of a render that has a runtime of its own, with one client for all threads.
namespace SYLVAR {

/// Makes a runtime and publishes it as "renderRuntime", in place of an earlier one; empty when
/// there is none, and then that name has none either. Two calls must not run at the same time.
std::shared_ptr<SylvarRuntime> publishRenderRuntime();

/// The location at a path of the scene that an op tree file describes. Null when it is not there,
/// or when the runtime gives no transaction or no client; a file that cannot be opened reads as an
/// empty one.
GeometryProducerPtr openConcurrentScene(SylvarRuntime& runtime,
                                        const std::string& filename,
                                        const std::string& path);

}  // namespace SYLVAR
