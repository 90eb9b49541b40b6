// SPDX-License-Identifier: Apache-2.0
#include "Scene/SceneBuilder.h"

#include "AssetScene.h"
#include "ImportError.h"
#include "Scene/MeshLocation.h"
#include "Scene/SceneFrame.h"

namespace AssimpImport {
namespace {

constexpr float kMeshesDone = 0.9F;
constexpr std::size_t kNodesBetweenReports = 256;

float between(float from, float to, std::size_t done, std::size_t all) {
    return from + (to - from) * static_cast<float>(done) / static_cast<float>(all);
}

std::string baseName(const std::string& filename) {
    return filename.substr(filename.rfind('/') + 1);
}

}  // namespace

SceneBuilder::SceneBuilder(const ImportRequest& request,
                           const AssetFormat& format,
                           const aiScene& scene,
                           ImportProgress& progress)
    : request_(request),
      format_(format),
      scene_(scene),
      progress_(progress),
      budget_(request.options.maxLocations),
      locations_(AttributeMaker(request.suite), request.filename),
      nodes_(listNodes(*scene.mRootNode, request.options.maxLocations)),
      materials_(locations_, scene, request.filename, request.options.materials != 0),
      lenses_(readLenses(locations_,
                         scene,
                         nodes_,
                         format,
                         request.options.cameras != 0,
                         request.options.lights != 0)) {}

SuiteHandle SceneBuilder::build() {
    makeMeshes();
    checkContent();
    SuiteHandle scene = makeRoot(makeNodes());
    progress_.pass(1.0F);
    return scene;
}

void SceneBuilder::makeMeshes() {
    const std::size_t count = scene_.mMeshes ? scene_.mNumMeshes : 0;
    for (std::size_t i = 0; i < count; ++i) {
        const aiMesh* mesh = scene_.mMeshes[i];
        meshes_.push_back(
            mesh ? makeMeshLocation(
                       locations_, *mesh, format_, materials_.material(mesh->mMaterialIndex))
                 : SuiteHandle());
        hasPolygons_ = hasPolygons_ || meshes_.back();
        progress_.pass(between(kReadingShare, kMeshesDone, i + 1, count));
    }
}

void SceneBuilder::checkContent() const {
    if (!hasPolygons_ && scene_.mNumCameras == 0 && scene_.mNumLights == 0) {
        throw ImportError("it holds no polygons, no cameras and no lights");
    }
}

SuiteHandle SceneBuilder::makeNodes() {
    std::vector<SuiteHandle> made(nodes_.size());
    for (std::size_t left = nodes_.size(); left > 0; --left) {
        made[left - 1] = makeNode(left - 1, made);
        if (left % kNodesBetweenReports == 0) {
            const std::size_t done = nodes_.size() - left;
            progress_.pass(between(kMeshesDone, 1.0F, done, nodes_.size()));
        }
    }
    return made.front();
}

SuiteHandle SceneBuilder::makeNode(std::size_t place, std::vector<SuiteHandle>& made) {
    const TreeNode& tree = nodes_[place];
    ChildLocations children;
    addMeshes(*tree.node, children);
    for (const Lens& lens : lenses_.at(place)) {
        children.add(lens.name, lens.location, lens.type);
    }
    for (std::size_t i = tree.firstChild; i < tree.firstChild + tree.childCount; ++i) {
        children.add(nameOf(*nodes_[i].node), std::exchange(made[i], SuiteHandle()));
    }
    budget_.spend(1 + lenses_.at(place).size());
    GroupEntries attributes = locations_.attributes("group", nameOf(*tree.node));
    locations_.addXform(attributes, toRows(tree.node->mTransformation));
    return locations_.location(attributes, children);
}

// Some readers name the root node after the file, wherever that is.
std::string SceneBuilder::nameOf(const aiNode& node) const {
    const std::string name = textOf(node.mName);
    return name == request_.filename ? baseName(name) : name;
}

void SceneBuilder::addMeshes(const aiNode& node, ChildLocations& children) {
    const std::size_t count = node.mMeshes ? node.mNumMeshes : 0;
    for (std::size_t i = 0; i < count; ++i) {
        const unsigned int mesh = node.mMeshes[i];
        if (mesh < meshes_.size() && meshes_[mesh]) {
            budget_.spend(1);
            children.add(textOf(scene_.mMeshes[mesh]->mName), meshes_[mesh], "mesh");
        }
    }
}

SuiteHandle SceneBuilder::makeRoot(SuiteHandle rootNode) {
    SuiteHandle materials = materials_.makeLocation(locations_);
    budget_.spend(materials ? materials_.size() + 2 : 1);
    ChildLocations children;
    children.add("materials", std::move(materials));
    children.add(nameOf(*scene_.mRootNode), std::move(rootNode));
    GroupEntries attributes = locations_.attributes("group", baseName(request_.filename));
    locations_.addXform(attributes, sceneFrame(scene_, format_, request_.options));
    return locations_.location(attributes, children);
}

}  // namespace AssimpImport
