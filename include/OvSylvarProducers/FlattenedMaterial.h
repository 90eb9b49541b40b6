// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/GeometryProducer.h>

#include <string>
#include <vector>

/// What shades a location: its own "material" and those of the locations above it as one. The forms
/// that materials have are told in `docs/materials.md`.
namespace SYLVAR {

/// Merges materials, the nearest first. A null one is a classic material without children.
///
/// None: null. One: that one as it stands, and `terminals` means nothing. All of them classic: the
/// children of all, of one name the nearest whole; null when there are none. Otherwise a network of
/// all networks that drive a terminal, of those named, that no nearer one drives; each keeps its
/// nodes, interface and parameters whole, with ":" and its number in the list behind their names. A
/// classic material among them counts as a network with a node for each terminal T of which it has
/// a "<T>Shader".
///
/// What is missing, mistyped or malformed is passed over. Values are shared, not copied. Pure; any
/// thread.
OV_SYLVAR_PRODUCERS_API GroupAttribute
GetFlattenedMaterialAttr(const std::vector<GroupAttribute>& materials,
                         const std::vector<std::string>& terminals);

/// The materials of a location and those above it, minimised and merged; null when there are none.
/// A cache of the process remembers one result for each path until `EmptyFlattenedMaterialCache`,
/// whatever the terminals: another list, or a scene that has changed, gives the remembered one.
///
/// The producer must not be null. Throws `boost::lock_error` when the cache cannot be locked. Any
/// thread; two that ask for one path at once may both work, and the later result stays.
OV_SYLVAR_PRODUCERS_API GroupAttribute
GetFlattenedMaterialAttr(GeometryProducerPtr producer, const std::vector<std::string>& terminals);

/// Forgets all results of the cache. Throws as above. Any thread.
OV_SYLVAR_PRODUCERS_API void EmptyFlattenedMaterialCache();

/// A network material with no other children than those that shading reads: "style", "nodes",
/// "parameters", "interface" (of which an entry stays that has a "src" and a parameter of its name)
/// and "terminals". A classic material, or null, is given as it stands, and so is a network with
/// nothing to cut. Pure; any thread.
OV_SYLVAR_PRODUCERS_API GroupAttribute MinimizeResolvedMaterialAttr(const GroupAttribute& material);

}  // namespace SYLVAR
