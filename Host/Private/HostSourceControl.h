#pragma once

#include <string>

// Chooses the editor's source-control provider for the project, as the editor restores the user's choice:
// "git" or "none" as asked, or with "auto" git when the project folder is the top of a git work tree.
// Gives false, with the reason in Error, when git was asked for and can't be used.
bool SelectSourceControl(const std::string& Choice, const std::string& ProjectDir, std::string& Error);
