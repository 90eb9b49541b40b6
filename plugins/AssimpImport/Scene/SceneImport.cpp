// SPDX-License-Identifier: Apache-2.0
#include "Scene/SceneImport.h"

#include "AssetScene.h"
#include "Guard/AssetFileCheck.h"
#include "Guard/ImportThread.h"
#include "Guard/NestingDepth.h"
#include "Scene/SceneBuilder.h"

namespace AssimpImport {
namespace {

SuiteHandle readAndBuild(const ImportRequest& request,
                         const AssetFormat& format,
                         ImportProgress& progress) {
    const AssetScene scene(request, format, progress);
    return SceneBuilder(request, format, scene.get(), progress).build();
}

ImportThread::Answer answerOf(const ImportRequest& request) {
    return [&request](float fraction) {
        return request.progress(request.progressContext, fraction) != 0;
    };
}

}  // namespace

SuiteHandle importScene(const ImportRequest& request) {
    checkOptions(request.options);
    const AssetFormat& format = checkAssetFile(request);
    ImportThread thread(nestingDepth(request.filename, format.nesting));
    ImportProgress::Tell tell;
    if (request.progress) {
        tell = [&thread](float fraction) { return thread.ask(fraction); };
    }
    ImportProgress progress(tell);
    SuiteHandle scene;
    thread.run([&] { scene = readAndBuild(request, format, progress); }, answerOf(request));
    return scene;
}

}  // namespace AssimpImport
