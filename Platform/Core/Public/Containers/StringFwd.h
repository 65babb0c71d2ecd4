#pragma once

#include "CoreTypes.h"

class FString;
template<typename CharType>
class TStringView;
using FStringView = TStringView<TCHAR>;
using FAnsiStringView = TStringView<ANSICHAR>;
