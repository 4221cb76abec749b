// The contact sheet: every picture of the data folder on labelled pages, and a
// listing of every sound and music track with its playing time. Made after all
// files exist; for people checking the data, never installed.
#pragma once
#include <string>
#include <vector>

#include "tools/assetgen/registry.h"

namespace assetgen {

// Writes contact-sheet.png (and contact-sheet-2.png, ... when one page is not
// enough) into outDir; returns the names written.
std::vector<std::string> WriteContactPages(const std::string& outDir, const std::vector<Entry>& entries);

// Writes contact-sheet.txt into outDir.
void WriteSoundListing(const std::string& outDir, const std::vector<Entry>& entries);

}  // namespace assetgen
