// The editor's globals.
#pragma once

#include "CoreMinimal.h"
#include "Editor/EditorEngine.h"

// The editor engine of this process; null until the editor started.
extern UNREALED_API UEditorEngine* GEditor;
