// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <ResolutionTableOv/Export.h>

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// Names for the sizes of images.
namespace ORM_OV::ResolutionTable::v4 {

/// A size of an image, in pixels, as a table knows it.
struct Resolution {
    int width = 0;
    int height = 0;
    double pixelAspectRatio = 1.0;  ///< A pixel's width by its height.
    std::string name;
    std::string group;  ///< What it is listed under, as "film"; may be empty.
    std::string label;  ///< For people; may be empty.
};

/// Resolutions by name. A snapshot: it never changes, so any thread may use it without a lock.
class RESOLUTION_TABLE_OV_API ResolutionTable {
public:
    /// Of several resolutions with one name the first counts.
    explicit ResolutionTable(std::vector<Resolution> resolutions);

    /// The resolution of that name. Throws `std::out_of_range` with a text that holds the name when
    /// there is none; the empty name is like any other. Upper and lower case are different.
    Resolution getResolution(const std::string& name) const;

    /// All names, in the order in which the table was made.
    std::vector<std::string> getNames() const;

private:
    std::vector<Resolution> resolutions_;
    std::map<std::string, std::size_t, std::less<>> places_;
};

/// The table of that name; null gives the default table. Empty when there is none. The usual video
/// and film formats are the table "standard", which is also the default until another is. Any
/// thread.
RESOLUTION_TABLE_OV_API std::shared_ptr<ResolutionTable> GetResolutionTable(const char* name);

/// Puts a table under a name, over one that is there; null makes it the default. An empty pointer
/// takes the name away: without a default table, `GetResolutionTable(nullptr)` is empty. Any
/// thread.
RESOLUTION_TABLE_OV_API void SetResolutionTable(const char* name,
                                                std::shared_ptr<ResolutionTable> table);

/// What was read, or why nothing was.
struct ResolutionTableReadResult {
    std::shared_ptr<ResolutionTable> table;  ///< Empty when `error` is set.
    std::string error;                       ///< With line and column; empty on success.
};

/// Reads a table from JSON:
///
///     {"resolutions": [
///         {"name": "square_512", "width": 512, "height": 512,
///          "pixelAspectRatio": 1, "group": "square", "label": "Square 512"}]}
///
/// The last three may be left out. Width and height are whole numbers from 1 to 1000000, the ratio
/// is from 0.001 to 1000; a name stands once and is not empty. Other members are errors, comments
/// are allowed. Any thread.
RESOLUTION_TABLE_OV_API ResolutionTableReadResult readResolutionTable(std::string_view json);

/// The same from a file, whose name is in the error.
RESOLUTION_TABLE_OV_API ResolutionTableReadResult
readResolutionTableFile(const std::string& filename);

}  // namespace ORM_OV::ResolutionTable::v4
