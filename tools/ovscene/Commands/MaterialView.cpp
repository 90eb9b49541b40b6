// SPDX-License-Identifier: Apache-2.0
#include "Commands/MaterialView.h"

#include "ExitStatus.h"
#include "Scene/SceneProducer.h"
#include "Scene/SceneWalk.h"

namespace ovscene {

MaterialView materialView(const SceneFile& file,
                          const std::string& path,
                          const std::optional<std::vector<std::string>>& terminals) {
    const FoundLocation found = findLocation(topLocation(file), path, file.name);
    VisitLimit limit(file.name);
    const SceneWalk walk(found.location, found.parentPath, limit);
    MaterialView view;
    view.file = file.name;
    view.path = walk.path();
    view.type = found.location->type();
    view.material =
        mergedMaterial(producerAt(file, topProducer(file), path), view.path, terminals, file.name);
    if (view.material.isNetwork) {
        view.network = materialNetwork(view.material.group, limit);
    }
    view.errors.look(walk);
    return view;
}

void requireNetwork(const MaterialView& view) {
    if (!view.material.isNetwork) {
        throw CommandError(
            ExitStatus::NotFound,
            view.file + ": no shading network at " + view.path + "; its material is a classic one");
    }
}

}  // namespace ovscene
