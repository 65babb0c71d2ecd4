#include "Misc/CString.h"

#include "Containers/StringConv.h"
#include <cstdlib>
#include <string>

namespace
{
	bool TextToBool(const char* Text)
	{
		static const char* const TrueWords[] = {"true", "yes", "on"};
		for (const char* Word : TrueWords)
		{
			if (FCStringAnsi::Stricmp(Text, Word) == 0)
			{
				return true;
			}
		}
		return std::atoi(Text) != 0;
	}
}

template<>
double TCString<ANSICHAR>::Atod(const ANSICHAR* String)
{
	return String ? std::strtod(String, nullptr) : 0.0;
}

template<>
double TCString<TCHAR>::Atod(const TCHAR* String)
{
	return TCString<ANSICHAR>::Atod(FTCHARToANSI(String ? String : TEXT("")).Get());
}

template<>
bool TCString<ANSICHAR>::ToBool(const ANSICHAR* String)
{
	return String && TextToBool(String);
}

template<>
bool TCString<TCHAR>::ToBool(const TCHAR* String)
{
	return String && TextToBool(FTCHARToANSI(String).Get());
}
