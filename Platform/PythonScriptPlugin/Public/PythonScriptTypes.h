#pragma once

#include "CoreMinimal.h"
#include "Misc/EnumClassFlags.h"

// The engine reflects these types (UENUM, USTRUCT) for Blueprints and Python; the stand-in keeps them plain.

/** How a command is run. */
enum class EPythonCommandExecutionMode : uint8
{
	/** The command is a file with optional arguments, or literal code of many statements. */
	ExecuteFile,
	/** One statement, whose value is printed. */
	ExecuteStatement,
	/** One expression, whose value becomes the command's result. */
	EvaluateStatement
};

/** What a file runs with. */
enum class EPythonFileExecutionScope : uint8
{
	/** Its own globals. */
	Private,
	/**
	 * The console's shared globals. Stand-in: every command runs in an interpreter of its own, so there
	 * is no shared console state and both scopes behave alike.
	 */
	Public
};

enum class EPythonCommandFlags : uint8
{
	None = 0,
	/** Don't show dialogs; the stand-in never does. */
	Unattended = 1 << 0
};
ENUM_CLASS_FLAGS(EPythonCommandFlags)

enum class EPythonLogOutputType : uint8
{
	Info,
	Warning,
	Error
};

/** One line that the command wrote while it ran. */
struct FPythonLogOutputEntry
{
	EPythonLogOutputType Type = EPythonLogOutputType::Info;
	FString Output;
};

/** A command and what running it gave. */
struct FPythonCommandEx
{
	EPythonCommandFlags Flags = EPythonCommandFlags::None;
	EPythonCommandExecutionMode ExecutionMode = EPythonCommandExecutionMode::ExecuteFile;
	EPythonFileExecutionScope FileExecutionScope = EPythonFileExecutionScope::Private;
	/** Literal code, or a file (with optional arguments) to run. */
	FString Command;
	/** The value of an evaluated expression, or the error when the command failed. */
	FString CommandResult;
	/** What the command wrote (prints, unreal.log and the like), in order. */
	TArray<FPythonLogOutputEntry> LogOutput;
};
