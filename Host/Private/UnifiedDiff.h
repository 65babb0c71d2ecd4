#pragma once

#include <string>

// Unified diff ("--- a/Path", "+++ b/Path", @@ hunks with three lines of context) of two texts.
// An empty result means the texts have the same lines.
std::string MakeUnifiedDiff(const std::string& Path, const std::string& OldText, const std::string& NewText, int ContextLines = 3);
