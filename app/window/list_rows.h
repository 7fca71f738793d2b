#pragma once

#include "gui/list_view.h"
#include "sys/notice.h"

struct ToneListEntry;

// The rows of a tone that is a list: the lines of its file, with what is wrong with their entries and when
// they play.

inline constexpr const char* ListHint =
    "The entries of the list, of which the lowest plays first (double click to edit)";

LRowMark GetEntryMark(const ToneListEntry& entry);

std::span<const LListColumn> GetListColumns();

/// Fills an empty view of these columns; each row has the item as its data. Returns which files are missing.
/// Kept quirk: the last row shows the list's own name instead of its entry.
std::vector<LNotice> ShowListRows(LListView& view, const std::string& list, std::uint32_t item);
