#pragma once

#include <string>

// Finds the .uproject of a project folder (or takes the file itself) and checks the folder's shape and its
// backend stage file. Gives the .uproject's path, or an empty string with the reason in Error.
std::string ResolveProjectFile(const std::string& ProjectPath, std::string& Error);

// Checks Config/DefaultPlugin.ini when the project has one: a known stage with a URL. Empty when fine.
std::string CheckPluginIni(const std::string& ProjectDir);
