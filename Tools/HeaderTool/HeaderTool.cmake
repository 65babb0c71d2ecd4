# tavrine_generate_headers: runs the header tool on a target's headers at build time, as the engine's
# build runs its header tool. See README.md in this folder.
include_guard(GLOBAL)

find_package(Python3 REQUIRED COMPONENTS Interpreter)
# Cached, because find_package's variables stay in the folder that first included this file.
set(TAVRINE_PYTHON "${Python3_EXECUTABLE}" CACHE INTERNAL "The Python that runs the header tool")

set(TAVRINE_HEADER_TOOL "${CMAKE_CURRENT_LIST_DIR}/HeaderTool.py" CACHE INTERNAL "The header tool script")
file(GLOB TAVRINE_HEADER_TOOL_SOURCES CONFIGURE_DEPENDS "${CMAKE_CURRENT_LIST_DIR}/headertool/*.py")
set(TAVRINE_HEADER_TOOL_SOURCES "${TAVRINE_HEADER_TOOL};${TAVRINE_HEADER_TOOL_SOURCES}" CACHE INTERNAL "The header tool and its modules")

# tavrine_generate_headers(TARGET <target> HEADERS <header>...
#                          [MODULE <name>] [MODULE_ROOT <dir>] [OUTPUT_DIR <dir>])
#
# Every header that includes its "<Name>.generated.h" gets <Name>.generated.h and <Name>.gen.cpp in
# OUTPUT_DIR (default: <target>.gen/ in the current binary folder), made again when the header changes.
# The .gen.cpp files join the target's sources and OUTPUT_DIR its public include folders. Headers without
# that include are skipped; CMake re-configures when one of them changes, so that a header that starts
# using the reflection macros is picked up. MODULE (default: the target's name) names the package of the
# types, "/Script/<MODULE>"; MODULE_ROOT (default: found from each header) is the folder above Public/.
function(tavrine_generate_headers)
	cmake_parse_arguments(PARSE_ARGV 0 Arg "" "TARGET;MODULE;MODULE_ROOT;OUTPUT_DIR" "HEADERS")
	if(NOT Arg_TARGET OR NOT TARGET ${Arg_TARGET})
		message(FATAL_ERROR "tavrine_generate_headers: TARGET must name an existing target")
	endif()
	set(Module "${Arg_MODULE}")
	if(NOT Module)
		set(Module "${Arg_TARGET}")
	endif()
	set(OutputDir "${Arg_OUTPUT_DIR}")
	if(NOT OutputDir)
		set(OutputDir "${CMAKE_CURRENT_BINARY_DIR}/${Arg_TARGET}.gen")
	endif()
	set(ModuleRootArgs "")
	if(Arg_MODULE_ROOT)
		get_filename_component(ModuleRoot "${Arg_MODULE_ROOT}" ABSOLUTE)
		set(ModuleRootArgs --module-root "${ModuleRoot}")
	endif()
	file(MAKE_DIRECTORY "${OutputDir}")

	set(GeneratedSources "")
	set(SeenNames "")
	foreach(Header IN LISTS Arg_HEADERS)
		get_filename_component(Header "${Header}" ABSOLUTE)
		get_filename_component(Base "${Header}" NAME_WE)
		file(STRINGS "${Header}" GeneratedInclude REGEX "#[ \t]*include[ \t]*\"([^\"]*/)?${Base}\\.generated\\.h\"")
		if(NOT GeneratedInclude)
			set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${Header}")
			continue()
		endif()
		if(Base IN_LIST SeenNames)
			message(FATAL_ERROR "tavrine_generate_headers: two reflected headers of ${Arg_TARGET} are named ${Base}.h; their generated files would collide")
		endif()
		list(APPEND SeenNames "${Base}")
		set(GeneratedHeader "${OutputDir}/${Base}.generated.h")
		set(GeneratedCpp "${OutputDir}/${Base}.gen.cpp")
		add_custom_command(
			OUTPUT "${GeneratedHeader}" "${GeneratedCpp}"
			COMMAND "${TAVRINE_PYTHON}" "${TAVRINE_HEADER_TOOL}" --module "${Module}" ${ModuleRootArgs} --output-dir "${OutputDir}" "${Header}"
			DEPENDS "${Header}" ${TAVRINE_HEADER_TOOL_SOURCES}
			COMMENT "Reflecting ${Base}.h"
			VERBATIM)
		list(APPEND GeneratedSources "${GeneratedCpp}" "${GeneratedHeader}")
	endforeach()
	if(GeneratedSources)
		target_sources(${Arg_TARGET} PRIVATE ${GeneratedSources})
	endif()
	target_include_directories(${Arg_TARGET} PUBLIC "${OutputDir}")
endfunction()
