// SPDX-License-Identifier: GPL-3.0-or-later
// Makes the files that the tool reads at its start out of the tables under data/.
#pragma once

#include <filesystem>

namespace dosmara {

// Writes, for every table in `tables`, its index files (.inx) into `folder`, which is made if need be, and
// beside each the expanded table (.tsv). Throws TableError; a mistake in a table leaves nothing written.
void BuildBoards(const std::filesystem::path& tables, const std::filesystem::path& folder);

// Writes one language file (.lng) for each language of `captions` into `folder`, which is made if need be.
// Throws TableError; a mistake in the table leaves nothing written.
void BuildCaptions(const std::filesystem::path& captions, const std::filesystem::path& folder);

}  // namespace dosmara
