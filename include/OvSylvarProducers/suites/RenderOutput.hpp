/* SPDX-License-Identifier: Apache-2.0 */
#ifndef OV_SYLVAR_PRODUCERS_SUITES_RENDER_OUTPUT_HPP
#define OV_SYLVAR_PRODUCERS_SUITES_RENDER_OUTPUT_HPP

#include <OvSylvarProducers/suites/RenderOutputUtilsSuite.h>
#include <OvSylvarProducers/suites/Scene.hpp>
#include <SylvarPlatform/suites/AttributeSuite.h>
#include <SylvarPlatform/suites/HostTable.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// What a renderer asks of a scene beyond walking it, for plug-ins in C++17: the table of
/// RenderOutputUtilsSuite.h as Scene.hpp has that of the scene, and by the same rules: what is not
/// there is an empty value, what goes wrong is an `Error`, and nothing is linked.
///
///     const Expected<RenderOutput> output = RenderOutput::find(*host);
///     const Expected<Resolution> picture = output->resolution(root);
///     const Expected<Camera> camera = output->camera(root, "/root/world/cam/camera");
///     if (camera && *camera) { aim(camera->fov, camera->xform); }
///
///     const Expected<Attribute> material = output->flattenedMaterial(mesh, {"surface"});
///     const Expected<ShadingNetwork> network = output->shadingNetwork(*material);
///     const ShadingNode surface = network->node(material->child("terminals.surface").get(""));
///     for (const auto& [name, value] : surface.parameters()) { use(name, value); }
///     for (const auto& [input, source] : surface.connections()) {
///         drive(input, network->node(source.node), source.port);
///     }
///
/// Threads: any number may call the const functions of one object at once, with one exception, for
/// the host's cache of cameras and the count of their handles have no lock. Callers keep apart all
/// calls of `RenderOutput::camera`, `pixelArea` and `proceduralArguments`, of whatever object.
namespace SYLVAR::Suites {

namespace Detail {

/// Gives a handle back to the table that it came from.
template <auto kRelease>
struct GiveBack {
    const OvRenderOutputUtilsSuite* suite = nullptr;  // set wherever there is a handle
    template <class Handle>
    void operator()(Handle* handle) const {
        (suite->*kRelease)(handle);
    }
};

template <class Handle, auto kRelease>
using Owned = std::unique_ptr<Handle, GiveBack<kRelease>>;

}  // namespace Detail

// ---- What is told as plain values ---------------------------------------------------------------

/// The picture of a render.
struct Resolution {
    std::string name;
    int width = 0;  ///< In pixels, and so is the height.
    int height = 0;
};

/// A camera, or the absent one, which is false and has zeros. A value like any other: to be copied
/// and read on any thread, with no handle behind it.
///
/// The screen rectangle of an orthographic one is in units of half the `orthographicWidth`.
struct Camera {
    bool isThere = false;
    float fov = 0;  ///< The horizontal field of view, in degrees.
    float near = 0;
    float far = 0;
    float left = 0;
    float right = 0;
    float top = 0;
    float bottom = 0;
    bool isOrthographic = false;
    float orthographicWidth = 0;  ///< Of the whole view.

    /// From the camera to the world, for row vectors, row by row: the translation stands in the
    /// last row.
    std::array<double, 16> xform{};

    explicit operator bool() const noexcept { return isThere; }
};

/// What drives an input of a shading node; false, with empty texts, where nothing does. A value
/// like any other.
struct ShadingConnection {
    std::string name;  ///< Of the input, without what stands behind a last ":" of it.
    std::string node;  ///< The one that drives it, for `ShadingNetwork::node`.
    std::string port;  ///< Of that node.

    /// Whether all three are there.
    explicit operator bool() const noexcept {
        return !name.empty() && !node.empty() && !port.empty();
    }
};

/// How a procedural is told its arguments.
enum class ProceduralStyle : std::uint8_t {
    Classic = OV_PROCEDURAL_ARGUMENTS_CLASSIC,                     ///< A command line.
    ScenegraphAttribute = OV_PROCEDURAL_ARGUMENTS_SCENEGRAPH_ATTR  ///< XML.
};

/// When and for which picture a procedural is called.
struct ProceduralContext {
    int frame = 0;
    float shutterOpen = 0;
    float shutterClose = 0;
    std::array<float, 4> cropWindow{};  ///< Stands in the arguments as it stands here.
    int xres = 0;
    int yres = 0;
};

// ---- Shading ------------------------------------------------------------------------------------

/// A node of a shading network, or the absent one, which is false, tells nothing and has nothing.
/// It does not change, and stays good when the network has ended.
///
/// It is the one owner of its handle, and is moved, not copied: such a handle is counted without a
/// lock, and no two owners could be on two threads. Who needs another asks the network again.
class ShadingNode {
    using Suite = OvRenderOutputUtilsSuite;
    template <class Value, auto kCount, auto kName, auto kValue>
    class Range;

public:
    ShadingNode() noexcept = default;

    explicit operator bool() const noexcept { return handle_ != nullptr; }

    std::string name() const;
    std::string type() const;

    /// Whether name and type are there, which all nodes of a network have.
    bool isValid() const;

    /// Null when there is none of that name.
    Attribute parameter(Text name) const;

    /// What drives an input. An input within an input is "outer.inner".
    ShadingConnection connection(Text input) const;

    /// All of them in the order of the node, for range-for, each with its name:
    ///
    ///     for (const auto& [name, value] : node.parameters()) { ... }
    ///     for (const auto& [input, source] : node.connections()) { ... }
    ///
    /// A range and the names are good for as long as the node stays where it is.
    /// @{
    using Parameters = Range<Attribute,
                             &Suite::getShadingNodeParameterCount,
                             &Suite::getShadingNodeParameterName,
                             &ShadingNode::parameter>;
    using Connections = Range<ShadingConnection,
                              &Suite::getShadingNodeConnectionCount,
                              &Suite::getShadingNodeConnectionName,
                              &ShadingNode::connection>;
    Parameters parameters() const& noexcept;
    Parameters parameters() const&& = delete;
    Connections connections() const& noexcept;
    Connections connections() const&& = delete;
    /// @}

    /// The handle for the table, borrowed; or with its reference, which the caller gives back.
    ShadingNodeDescriptionStruct* handle() const noexcept { return handle_.get(); }
    ShadingNodeDescriptionStruct* detach() noexcept { return handle_.release(); }

private:
    friend class RenderOutput;
    friend class ShadingNetwork;
    using Handle = Detail::Owned<ShadingNodeDescriptionStruct, &Suite::releaseShadingNode>;

    ShadingNode(const OvAttributeSuite& attributes, Handle handle) noexcept
        : attributes_(&attributes), handle_(std::move(handle)) {}

    /// What an entry tells of this node, which must be there.
    template <class Told, class... Args, class... Given>
    Told tell(Told (*Suite::*entry)(ShadingNodeDescriptionStruct*, Args...), Given... given) const;

    const OvAttributeSuite* attributes_ = nullptr;  // set wherever there is a handle
    Handle handle_;
};

/// What a node has by name, in its order.
template <class Value, auto kCount, auto kName, auto kValue>
class ShadingNode::Range {
public:
    struct Item {
        std::string_view name;
        Value value;
    };

    class Iterator {
    public:
        using iterator_category = std::input_iterator_tag;
        using value_type = Item;
        using difference_type = std::ptrdiff_t;
        using pointer = const Item*;
        using reference = Item;

        Item operator*() const {
            const char* const name = node_->tell(kName, index_);
            return {Text(name).get(), (node_->*kValue)(name)};
        }
        Iterator& operator++() noexcept {
            ++index_;
            return *this;
        }
        bool operator==(const Iterator& other) const noexcept { return index_ == other.index_; }
        bool operator!=(const Iterator& other) const noexcept { return index_ != other.index_; }

    private:
        friend class Range;
        Iterator(const ShadingNode& node, unsigned index) noexcept : node_(&node), index_(index) {}

        const ShadingNode* node_;
        unsigned index_;
    };

    std::size_t size() const { return *node_ ? node_->tell(kCount) : 0; }
    Iterator begin() const noexcept { return Iterator(*node_, 0); }
    Iterator end() const { return Iterator(*node_, static_cast<unsigned>(size())); }

private:
    friend class ShadingNode;
    explicit Range(const ShadingNode& node) noexcept : node_(&node) {}

    const ShadingNode* node_;
};

/// The nodes of a material, or the absent network, which is false and has none. It does not change.
/// It is the one owner of its handle, and is moved, not copied.
///
/// It can be asked for a node by name alone: which names there are, the terminals of the material
/// tell, and the connections of the nodes behind them.
class ShadingNetwork {
public:
    ShadingNetwork() noexcept = default;

    explicit operator bool() const noexcept { return handle_ != nullptr; }

    /// The node of that name.
    ShadingNode node(Text name) const;

    /// The handle for the table, borrowed; or for good: then the caller frees it.
    OvShadingNetworkNodesStruct* handle() const noexcept { return handle_.get(); }
    OvShadingNetworkNodesStruct* detach() noexcept { return handle_.release(); }

private:
    friend class RenderOutput;
    using Handle = Detail::Owned<OvShadingNetworkNodesStruct,
                                 &OvRenderOutputUtilsSuite::freeShadingNetworkNodes>;

    ShadingNetwork(const OvAttributeSuite& attributes, Handle handle) noexcept
        : attributes_(&attributes), handle_(std::move(handle)) {}

    const OvAttributeSuite* attributes_ = nullptr;  // set wherever there is a handle
    Handle handle_;
};

// ---- The table ----------------------------------------------------------------------------------

/// What can be asked for a render. Any thread, but see above for cameras.
///
/// A `root` is the top location of the scene. Unless it is told otherwise, an absent location has
/// nothing: the answer is empty.
class RenderOutput {
public:
    /// The tables of a host. An error when it lacks one: `the host has no suite
    /// "RenderOutputUtilsHost", version 3`.
    static Expected<RenderOutput> find(const OvHostTable& host);

    /// Over two tables that live as long as all that comes of them.
    RenderOutput(const OvRenderOutputUtilsSuite& suite, const OvAttributeSuite& attributes) noexcept
        : suite_(&suite), attributes_(&attributes) {}

    /// @name The picture
    /// @{

    /// By the root's "renderSettings.resolution"; "square_512", 512 by 512, when it has none and
    /// when it is absent. A name that is not known is an error.
    Expected<Resolution> resolution(const Location& root) const;

    /// By the root's "renderSettings.cameraName"; "/root/world/cam/camera" when it has none.
    Expected<std::string> cameraPath(const Location& root) const;

    /// The camera at a path below the root; absent when there is none that can be read.
    Expected<Camera> camera(const Location& root, Text path) const;

    /// How many pixels the location's "bound" takes up through a camera, in a picture of the named
    /// resolution; 0 when there is no such camera or resolution. A location without a bound is an
    /// error.
    Expected<int> pixelArea(const Location& location, Text cameraPath, Text resolution) const;

    /// The times among the samples, in any order, that matter while the shutter is open, ascending.
    Expected<Values<float>> relevantSampleTimes(const std::vector<float>& sampleTimes,
                                                float shutterOpen,
                                                float shutterClose) const;
    /// @}

    /// @name The files
    /// @{

    /// Where an output of the location's "renderSettings" is rendered to before it is moved to its
    /// place: its "tempRenderLocation" with "~", variables and runs of "#", the frame, filled in.
    /// Without one, "tempDir" and a file of the name prefix + "tempRenderId" + "." + suffix; or
    /// the folder alone, when no prefix and suffix are given.
    Expected<std::string> tempLocation(const Location& location,
                                       Text output,
                                       Text prefix,
                                       Text suffix,
                                       float frame) const;
    Expected<std::string> tempLocation(const Location& location, Text output, float frame) const;

    /// The path of the tile that is being rendered, from that of the whole picture; the path itself
    /// where none is, and for an absent location.
    Expected<std::string> tilePath(const Location& location, Text path) const;
    /// @}

    /// @name Shading
    /// @{

    /// The materials of the location and those above it as one group, for those terminals; null
    /// when there are none. The host remembers one result for each path, whatever the terminals,
    /// until it is told to forget them.
    Expected<Attribute> flattenedMaterial(const Location& location,
                                          const std::vector<std::string>& terminals) const;
    Expected<void> forgetFlattenedMaterials() const;

    /// The nodes of a material, absent when it is no group; and those of the location's own
    /// "material", a network without nodes when it has none.
    Expected<ShadingNetwork> shadingNetwork(const Attribute& material) const;
    Expected<ShadingNetwork> shadingNetwork(const Location& location) const;

    /// Texture assignments rewritten as arbitrary attributes; null for what is no group.
    Expected<Attribute> texturesAsArbitrary(const Attribute& textures) const;
    /// @}

    /// @name Procedurals and delegates
    /// @{

    /// What a procedural is told when it is called, from a group attribute of its location; "" when
    /// the location has no such group.
    Expected<std::string> proceduralArguments(const Location& location,
                                              Text attribute,
                                              const ProceduralContext& context,
                                              ProceduralStyle style) const;

    /// Hands the location, which may be absent, to the delegate for that renderer, "" being
    /// delegates for any, and that type, and gives what the delegate returned; nothing when there
    /// is no such delegate. What goes in and what comes out is between the two.
    Expected<std::optional<void*>> processLocation(const Location& location,
                                                   Text renderer,
                                                   Text locationType,
                                                   void* input) const;

    /// The types of location that there are delegates for, ascending.
    Expected<Values<const char*>> locationTypesWithDelegates(Text renderer) const;
    /// @}

    /// @name The host
    /// @{

    /// The architecture of the host's build, and a path with "%ARCH" replaced by it.
    std::string archString() const;
    std::string expandArchPath(Text path) const;

    /// Has all plug-ins of an API drop their caches; for "" those of all APIs. The runtime's own
    /// plug-ins are left alone.
    Expected<void> flushPluginCaches(Text apiName) const;
    /// @}

    /// Take over handles that come from the table itself.
    ShadingNode adopt(ShadingNodeDescriptionStruct* owned) const noexcept;
    ShadingNetwork adopt(OvShadingNetworkNodesStruct* owned) const noexcept;

private:
    Attribute valueOf(OvAttributeStruct* owned) const noexcept;
    std::string textOf(OvAttributeStruct* owned) const;
    Camera read(CameraInfoStruct* camera) const;

    const OvRenderOutputUtilsSuite* suite_;
    const OvAttributeSuite* attributes_;
};

// ---- What follows is how it is done -------------------------------------------------------------

template <class Told, class... Args, class... Given>
Told ShadingNode::tell(Told (*Suite::*entry)(ShadingNodeDescriptionStruct*, Args...),
                       Given... given) const {
    const Suite& suite = *handle_.get_deleter().suite;
    return Detail::told([&] { return (suite.*entry)(handle(), given...); });
}

inline std::string ShadingNode::name() const {
    return handle_ ? Text(tell(&Suite::getShadingNodeName)).get() : "";
}

inline std::string ShadingNode::type() const {
    return handle_ ? Text(tell(&Suite::getShadingNodeType)).get() : "";
}

inline bool ShadingNode::isValid() const {
    return handle_ && tell(&Suite::isShadingNodeValid);
}

inline Attribute ShadingNode::parameter(Text name) const {
    return handle_
               ? Attribute::adopt(*attributes_, tell(&Suite::getShadingNodeParameter, name.get()))
               : Attribute();
}

inline ShadingConnection ShadingNode::connection(Text input) const {
    if (!handle_) {
        return {};
    }
    const Suite& suite = *handle_.get_deleter().suite;
    const Detail::Owned<ShadingNodeConnectionDescriptionStruct,
                        &Suite::releaseShadingNodeConnection>
        handle(tell(&Suite::getShadingNodeConnection, input.get()), {&suite});
    return Detail::told([&]() -> ShadingConnection {
        return {Text(suite.getConnectionName(handle.get())).get(),
                Text(suite.getConnectionNodeName(handle.get())).get(),
                Text(suite.getConnectionPortName(handle.get())).get()};
    });
}

inline ShadingNode::Parameters ShadingNode::parameters() const& noexcept {
    return Parameters(*this);
}

inline ShadingNode::Connections ShadingNode::connections() const& noexcept {
    return Connections(*this);
}

inline ShadingNode ShadingNetwork::node(Text name) const {
    if (!handle_) {
        return {};
    }
    const OvRenderOutputUtilsSuite& suite = *handle_.get_deleter().suite;
    const auto node =
        Detail::told([&] { return suite.getShadingNetworkNode(handle(), name.get()); });
    return RenderOutput(suite, *attributes_).adopt(node);
}

inline Expected<RenderOutput> RenderOutput::find(const OvHostTable& host) {
    const auto suite = Detail::findSuite<OvRenderOutputUtilsSuite>(
        host, OV_RENDER_OUTPUT_UTILS_SUITE_NAME, OV_RENDER_OUTPUT_UTILS_SUITE_VERSION);
    if (!suite) {
        return suite.error();
    }
    const auto attributes = Detail::findSuite<OvAttributeSuite>(
        host, OV_ATTRIBUTE_SUITE_NAME, OV_ATTRIBUTE_SUITE_VERSION);
    if (!attributes) {
        return attributes.error();
    }
    return RenderOutput(**suite, **attributes);
}

inline Expected<Resolution> RenderOutput::resolution(const Location& root) const {
    return Detail::caught([&] {
        Resolution picture;
        picture.name =
            textOf(suite_->getRenderResolution(root.handle(), &picture.width, &picture.height));
        return picture;
    });
}

inline Expected<std::string> RenderOutput::cameraPath(const Location& root) const {
    return Detail::caught([&] { return textOf(suite_->getCameraPath(root.handle())); });
}

inline Expected<Camera> RenderOutput::camera(const Location& root, Text path) const {
    return Detail::caught([&] {
        const Detail::Owned<CameraInfoStruct, &OvRenderOutputUtilsSuite::releaseCameraInfo> handle(
            suite_->getCameraInfo(root.handle(), path.get()), {suite_});
        return handle ? read(handle.get()) : Camera();
    });
}

inline Camera RenderOutput::read(CameraInfoStruct* handle) const {
    Camera camera;
    camera.isThere = true;
    camera.fov = suite_->getCameraFov(handle);
    camera.near = suite_->getCameraNear(handle);
    camera.far = suite_->getCameraFar(handle);
    camera.left = suite_->getCameraLeft(handle);
    camera.right = suite_->getCameraRight(handle);
    camera.top = suite_->getCameraTop(handle);
    camera.bottom = suite_->getCameraBottom(handle);
    camera.isOrthographic = suite_->isCameraOrthographic(handle);
    camera.orthographicWidth = suite_->getCameraOrthographicWidth(handle);
    std::copy_n(suite_->getCameraXform(handle), camera.xform.size(), camera.xform.begin());
    return camera;
}

inline Expected<int> RenderOutput::pixelArea(const Location& location,
                                             Text cameraPath,
                                             Text resolution) const {
    return Detail::caught([&] {
        return suite_->getPixelAreaThroughCamera(
            location.handle(), cameraPath.get(), resolution.get());
    });
}

inline Expected<Values<float>> RenderOutput::relevantSampleTimes(
    const std::vector<float>& sampleTimes,
    float shutterOpen,
    float shutterClose) const {
    return Detail::caught([&] {
        return valueOf(suite_->findSampleTimesRelevantToShutterRange(
                           sampleTimes.data(),
                           static_cast<unsigned>(sampleTimes.size()),
                           shutterOpen,
                           shutterClose))
            .values<float>();
    });
}

inline Expected<std::string> RenderOutput::tempLocation(const Location& location,
                                                        Text output,
                                                        Text prefix,
                                                        Text suffix,
                                                        float frame) const {
    return Detail::caught([&] {
        return textOf(suite_->getRenderOutputTempLocation(
            location.handle(), output.get(), prefix.get(), suffix.get(), frame));
    });
}

/// A null prefix makes the name empty.
inline Expected<std::string> RenderOutput::tempLocation(const Location& location,
                                                        Text output,
                                                        float frame) const {
    return Detail::caught([&] {
        return textOf(suite_->getRenderOutputTempLocation(
            location.handle(), output.get(), nullptr, nullptr, frame));
    });
}

inline Expected<std::string> RenderOutput::tilePath(const Location& location, Text path) const {
    return Detail::caught(
        [&] { return textOf(suite_->processTilePath(location.handle(), path.get())); });
}

inline Expected<Attribute> RenderOutput::flattenedMaterial(
    const Location& location,
    const std::vector<std::string>& terminals) const {
    if (!location) {
        return Attribute();
    }
    std::vector<const char*> names;
    names.reserve(terminals.size());
    for (const std::string& terminal : terminals) {
        names.push_back(terminal.c_str());
    }
    return Detail::caught([&] {
        const Attribute wanted = valueOf(attributes_->createStringArray(
            names.data(), static_cast<std::int64_t>(names.size()), 1));
        return valueOf(suite_->getFlattenedMaterialAttr(location.handle(), wanted.handle()));
    });
}

inline Expected<void> RenderOutput::forgetFlattenedMaterials() const {
    return Detail::done([&] { suite_->emptyFlattenedMaterialCache(); });
}

inline Expected<ShadingNetwork> RenderOutput::shadingNetwork(const Attribute& material) const {
    return Detail::caught(
        [&] { return adopt(suite_->getShadingNetworkNodesFromAttr(material.handle())); });
}

inline Expected<ShadingNetwork> RenderOutput::shadingNetwork(const Location& location) const {
    if (!location) {
        return ShadingNetwork();
    }
    return Detail::caught(
        [&] { return adopt(suite_->getShadingNetworkNodesFromIterator(location.handle())); });
}

inline Expected<Attribute> RenderOutput::texturesAsArbitrary(const Attribute& textures) const {
    return Detail::caught(
        [&] { return valueOf(suite_->convertTexturesToArbitraryAttr(textures.handle())); });
}

inline Expected<std::string> RenderOutput::proceduralArguments(const Location& location,
                                                               Text attribute,
                                                               const ProceduralContext& context,
                                                               ProceduralStyle style) const {
    if (!location) {
        return std::string();
    }
    return Detail::caught([&] {
        return textOf(suite_->buildProceduralArgumentsString(location.handle(),
                                                             static_cast<int>(style),
                                                             attribute.get(),
                                                             context.frame,
                                                             context.shutterOpen,
                                                             context.shutterClose,
                                                             context.cropWindow[0],
                                                             context.cropWindow[1],
                                                             context.cropWindow[2],
                                                             context.cropWindow[3],
                                                             context.xres,
                                                             context.yres));
    });
}

inline Expected<std::optional<void*>> RenderOutput::processLocation(const Location& location,
                                                                    Text renderer,
                                                                    Text locationType,
                                                                    void* input) const {
    return Detail::caught([&] {
        void* result = nullptr;
        const bool isProcessed = suite_->processLocationDelegate(
            location.handle(), renderer.get(), locationType.get(), input, &result);
        return isProcessed ? std::optional<void*>(result) : std::nullopt;
    });
}

inline Expected<Values<const char*>> RenderOutput::locationTypesWithDelegates(Text renderer) const {
    return Detail::caught([&] {
        return valueOf(suite_->getLocationTypesWithDelegates(renderer.get())).values<const char*>();
    });
}

inline std::string RenderOutput::archString() const {
    return Detail::told([&] { return textOf(suite_->getArchString()); });
}

inline std::string RenderOutput::expandArchPath(Text path) const {
    return Detail::told([&] { return textOf(suite_->expandArchPath(path.get())); });
}

inline Expected<void> RenderOutput::flushPluginCaches(Text apiName) const {
    return Detail::done([&] { suite_->flushPluginCaches(apiName.get()); });
}

inline ShadingNode RenderOutput::adopt(ShadingNodeDescriptionStruct* owned) const noexcept {
    return ShadingNode(*attributes_, ShadingNode::Handle(owned, {suite_}));
}

inline ShadingNetwork RenderOutput::adopt(OvShadingNetworkNodesStruct* owned) const noexcept {
    return ShadingNetwork(*attributes_, ShadingNetwork::Handle(owned, {suite_}));
}

inline Attribute RenderOutput::valueOf(OvAttributeStruct* owned) const noexcept {
    return Attribute::adopt(*attributes_, owned);
}

inline std::string RenderOutput::textOf(OvAttributeStruct* owned) const {
    return valueOf(owned).get("");
}

}  // namespace SYLVAR::Suites

#endif
