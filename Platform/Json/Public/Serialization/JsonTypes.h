// Kinds of JSON values and of the tokens a writer emits.
#pragma once

#include "CoreMinimal.h"

enum class EJson
{
	None,
	Null,
	String,
	Number,
	Boolean,
	Array,
	Object
};

enum class EJsonToken
{
	None,
	Comma,
	CurlyOpen,
	CurlyClose,
	SquareOpen,
	SquareClose,
	Colon,
	String,
	Number,
	True,
	False,
	Null,
	Identifier
};

// Numbers, booleans and null are short: in an array the pretty form keeps them on one line.
inline bool EJsonToken_IsShortValue(EJsonToken Token)
{
	return Token == EJsonToken::Number || Token == EJsonToken::True || Token == EJsonToken::False || Token == EJsonToken::Null;
}
