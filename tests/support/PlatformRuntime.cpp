// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/SylvarServices.h>

/// The runtime table of the platform, for tests in plain C.
extern "C" const OvRuntimeSuite* platformRuntimeSuite(void);

const OvRuntimeSuite* platformRuntimeSuite() {
    return Sylvar3::OvSylvarServicesHost::v1::Sylvar().createRuntime()->suite;
}
