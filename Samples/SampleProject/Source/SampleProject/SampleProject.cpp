#include "SampleProject.h"

#include "Modules/ModuleManager.h"

IMPLEMENT_PRIMARY_GAME_MODULE(FDefaultGameModuleImpl, SampleProject, "SampleProject");

DEFINE_LOG_CATEGORY(LogSampleProject);
