// SPDX-License-Identifier: Apache-2.0
#include "Commands/PluginsText.h"

#include "Print/JoinedText.h"
#include "Print/NumberText.h"
#include "Print/SafeText.h"
#include "Print/Terminal.h"
#include "Print/TextTable.h"

#include <cstddef>
#include <cstdint>

namespace ovscene {
namespace {

Cell textCell(const std::string& text) {
    return Cell::left(safeText(text));
}

Cell nameCell(const std::string& text) {
    const std::string safe = safeText(text);
    return {Palette().type(safe), displayWidth(safe), false};
}

void printList(const PluginsView& view, Output& output) {
    Table table(output);
    table.add({Cell::left("API"), Cell::number("version"), Cell::left("plug-in")});
    for (const PluginEntry& entry : view.plugins) {
        table.add({textCell(entry.plugin.api),
                   Cell::number(numberText(entry.plugin.version)),
                   nameCell(entry.plugin.name)});
    }
    table.finish();
}

void printFolders(const PluginsView& view, Output& output) {
    output.write("folders, in the order in which they are searched\n");
    Table table(output);
    std::int64_t number = 0;
    for (const std::string& folder : view.folders) {
        table.add({Cell::number(numberText(++number)), textCell(folder)});
    }
    table.finish();
}

bool isSameApi(const ListedPlugin& a, const ListedPlugin& b) {
    return a.api == b.api && a.version == b.version;
}

/// The plug-ins of one API from that place on; returns the place behind them.
std::size_t printApi(const std::vector<PluginEntry>& plugins, std::size_t at, Output& output) {
    const ListedPlugin& first = plugins[at].plugin;
    output.write("\n" + Palette().bold(safeText(first.api)) + ", version " +
                 numberText(first.version) + "\n");
    printParagraph(aboutApi(first.api, first.version), output);
    output.put('\n');
    TextTable table(output);
    table.add({Cell::left("plug-in")}, "gives");
    for (; at < plugins.size() && isSameApi(first, plugins[at].plugin); ++at) {
        table.add({nameCell(plugins[at].plugin.name)}, plugins[at].offer);
    }
    table.finish();
    return at;
}

void printDelegates(const PluginsView& view, Output& output) {
    if (view.delegates.empty()) {
        return;
    }
    output.write("\ntypes of location that have a delegate\n");
    TextTable table(output);
    for (const DelegatesOfRenderer& known : view.delegates) {
        table.add(
            {known.renderer.empty() ? Cell::left("(any renderer)") : nameCell(known.renderer)},
            joined(known.types));
    }
    table.finish();
}

/// What cannot be used of one file, from that place on; returns the place behind it.
std::size_t printRejectedOf(const std::vector<RejectedPlugin>& all,
                            std::size_t at,
                            Output& output) {
    const std::string& file = all[at].file;
    output.write((file.empty() ? "(in this program)" : safeText(file)) + "\n");
    TextTable table(output);
    for (; at < all.size() && all[at].file == file; ++at) {
        const std::string name = safeText(all[at].plugin);
        table.add({Cell::left(name.empty() ? "" : "  " + name)}, all[at].reason);
    }
    table.finish();
    return at;
}

void printRejected(const PluginsView& view, Output& output) {
    output.write(view.rejected.empty() ? "" : "\nrejected\n");
    for (std::size_t at = 0; at < view.rejected.size();) {
        at = printRejectedOf(view.rejected, at, output);
    }
}

std::string countText(const PluginsView& view) {
    const auto rejected = static_cast<std::int64_t>(view.rejected.size());
    return counted(static_cast<std::int64_t>(view.plugins.size()), "plug-in") +
           (rejected > 0 ? ", " + numberText(rejected) + " rejected" : "");
}

}  // namespace

void printPlugins(const PluginsView& view, Output& output) {
    if (view.isExplained) {
        printFolders(view, output);
        for (std::size_t at = 0; at < view.plugins.size();) {
            at = printApi(view.plugins, at, output);
        }
        printDelegates(view, output);
    } else {
        printList(view, output);
    }
    printRejected(view, output);
    output.write("\n" + countText(view) + "\n");
}

}  // namespace ovscene
