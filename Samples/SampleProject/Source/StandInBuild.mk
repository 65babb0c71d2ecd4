# How the editor stand-in builds this project's game module, where the engine would run UnrealBuildTool.
# The editor runs it from the project's folder (Config/DefaultEditor.ini, [StandIn.Build]) and sets
# STANDIN_CORE_INCLUDE_DIR to the engine's Core headers. Like UnrealBuildTool it compiles against a shared
# precompiled header, builds only what changed, and links the module into the editor's binary of the project.

MODULE := SampleProject
SOURCE_DIR := Source/$(MODULE)
INTERMEDIATE_DIR := Intermediate/Build/Linux/UnrealEditor/Development/$(MODULE)
PRODUCT := Binaries/Linux/libUnrealEditor-$(MODULE).so

ifeq ($(strip $(STANDIN_CORE_INCLUDE_DIR)),)
$(error STANDIN_CORE_INCLUDE_DIR is not set: the editor sets it when it runs this build)
endif

CXXFLAGS := -std=c++20 -fPIC -O0 -Wall -Wextra -Wno-unused-parameter -fdiagnostics-color=never \
	-DUE_EDITOR=1 -DWITH_EDITOR=1 -DWITH_EDITORONLY_DATA=1 -DPLATFORM_LINUX=1 \
	-I$(SOURCE_DIR) -I$(STANDIN_CORE_INCLUDE_DIR)

SOURCES := $(sort $(wildcard $(SOURCE_DIR)/*.cpp $(SOURCE_DIR)/*/*.cpp))
OBJECTS := $(patsubst $(SOURCE_DIR)/%.cpp,$(INTERMEDIATE_DIR)/%.o,$(SOURCES))
SHARED_PCH := $(INTERMEDIATE_DIR)/SharedPCH.Core.h
# Relinks when a source file comes or goes, not only when one changes.
OBJECT_LIST := $(INTERMEDIATE_DIR)/Objects.txt
$(shell mkdir -p $(INTERMEDIATE_DIR) && (echo '$(OBJECTS)' | cmp -s - $(OBJECT_LIST) || echo '$(OBJECTS)' > $(OBJECT_LIST)))

.PHONY: all
all: $(PRODUCT)

$(PRODUCT): $(OBJECTS) $(OBJECT_LIST)
	@mkdir -p $(dir $@)
	@echo "[Link] $(notdir $@)"
	@$(CXX) -shared -o $@ $(OBJECTS)

$(INTERMEDIATE_DIR)/%.o: $(SOURCE_DIR)/%.cpp $(SHARED_PCH).gch
	@mkdir -p $(dir $@)
	@echo "[Compile] $(notdir $<)"
	@$(CXX) $(CXXFLAGS) -include $(SHARED_PCH) -MMD -MP -c $< -o $@

$(SHARED_PCH).gch:
	@mkdir -p $(dir $@)
	@echo "[PCH] $(notdir $(SHARED_PCH))"
	@echo '#include "CoreMinimal.h"' > $(SHARED_PCH)
	@$(CXX) $(CXXFLAGS) -MMD -MP -MF $(SHARED_PCH).d -MT $@ -x c++-header $(SHARED_PCH) -o $@

-include $(OBJECTS:.o=.d) $(SHARED_PCH).d
