#pragma once

#include "Containers/Array.h"
#include "Containers/StringConv.h"
#include "Containers/UnrealString.h"

/**
 * Cuts a child process's output, UTF-8 bytes arriving in pieces, into lines without their CR LF or LF.
 * A line cut between two pieces waits for the rest; the final piece ends the last line. Only the stand-in
 * has it, for the programs it runs in place of the engine's (the build, the Python interpreter).
 */
class FStandInLineSplitter
{
public:
	template<typename FunctorType>
	void Feed(const TArray<uint8>& Bytes, bool bFinal, FunctorType&& OnLine)
	{
		Pending.Append(Bytes);
		int32 LineStart = 0;
		for (int32 Index = 0; Index < Pending.Num(); ++Index)
		{
			const bool bLineEnd = Pending[Index] == '\n';
			if (bLineEnd || (bFinal && Index == Pending.Num() - 1))
			{
				int32 LineEnd = bLineEnd ? Index : Index + 1;
				if (LineEnd > LineStart && Pending[LineEnd - 1] == '\r')
				{
					--LineEnd;
				}
				const FUTF8ToTCHAR Line(reinterpret_cast<const ANSICHAR*>(Pending.GetData() + LineStart), LineEnd - LineStart);
				OnLine(FString(Line.Length(), Line.Get()));
				LineStart = Index + 1;
			}
		}
		Pending.RemoveAt(0, LineStart);
	}

	void Reset()
	{
		Pending.Reset();
	}

private:
	TArray<uint8> Pending;
};
