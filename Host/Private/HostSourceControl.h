#pragma once

#include <string>

// Chooses the editor's source-control provider for the project, as the editor restores the user's choice:
// "git" or "none" as asked, or with "auto" git when the project is inside a git work tree and none otherwise.
// Gives false, with the reason in Error, when git was asked for and can't be used.
bool SelectSourceControl(const std::string& Choice, std::string& Error);
