#include "UnifiedDiff.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <vector>

namespace
{
	struct FEdit
	{
		char Kind; // ' ', '-' or '+'
		std::string_view Line;
		int OldNumber;
		int NewNumber;
	};

	std::vector<std::string_view> SplitLines(const std::string& Text)
	{
		std::vector<std::string_view> Lines;
		size_t Start = 0;
		while (Start < Text.size())
		{
			size_t End = Text.find('\n', Start);
			if (End == std::string::npos)
			{
				End = Text.size();
			}
			size_t LineEnd = End;
			if (LineEnd > Start && Text[LineEnd - 1] == '\r')
			{
				--LineEnd;
			}
			Lines.emplace_back(Text.data() + Start, LineEnd - Start);
			Start = End + 1;
		}
		return Lines;
	}

	// The script for texts too different to search cheaply: every old line out, every new line in.
	std::vector<FEdit> ReplaceAll(const std::vector<std::string_view>& Old, const std::vector<std::string_view>& New)
	{
		std::vector<FEdit> Edits;
		for (size_t Index = 0; Index < Old.size(); ++Index)
		{
			Edits.push_back({'-', Old[Index], static_cast<int>(Index + 1), 0});
		}
		for (size_t Index = 0; Index < New.size(); ++Index)
		{
			Edits.push_back({'+', New[Index], static_cast<int>(Old.size()), static_cast<int>(Index + 1)});
		}
		return Edits;
	}

	// Myers' greedy algorithm with one saved frontier per edit distance, walked back for the script.
	std::vector<FEdit> DiffLines(const std::vector<std::string_view>& Old, const std::vector<std::string_view>& New)
	{
		const int N = static_cast<int>(Old.size());
		const int M = static_cast<int>(New.size());
		const int Max = N + M;
		const int Offset = Max + 1;
		std::vector<int> Frontier(2 * Max + 3, 0);
		std::vector<std::vector<int>> Trace;
		int FinalD = 0;
		// 16 MB of saved frontiers at most; beyond that a display diff is not worth the memory.
		const size_t TraceBudget = size_t(1) << 22;
		for (int D = 0; D <= Max; ++D)
		{
			if ((Trace.size() + 1) * Frontier.size() > TraceBudget)
			{
				return ReplaceAll(Old, New);
			}
			Trace.push_back(Frontier);
			bool bDone = false;
			for (int K = -D; K <= D; K += 2)
			{
				int X = (K == -D || (K != D && Frontier[Offset + K - 1] < Frontier[Offset + K + 1])) ? Frontier[Offset + K + 1] : Frontier[Offset + K - 1] + 1;
				int Y = X - K;
				while (X < N && Y < M && Old[X] == New[Y])
				{
					++X;
					++Y;
				}
				Frontier[Offset + K] = X;
				if (X >= N && Y >= M)
				{
					bDone = true;
					break;
				}
			}
			if (bDone)
			{
				FinalD = D;
				break;
			}
		}

		std::vector<FEdit> Reversed;
		int X = N;
		int Y = M;
		for (int D = FinalD; D >= 0; --D)
		{
			const std::vector<int>& V = Trace[D];
			const int K = X - Y;
			int PrevK = K;
			if (D > 0)
			{
				PrevK = (K == -D || (K != D && V[Offset + K - 1] < V[Offset + K + 1])) ? K + 1 : K - 1;
			}
			const int PrevX = D > 0 ? V[Offset + PrevK] : 0;
			const int PrevY = PrevX - PrevK;
			while (X > PrevX && Y > PrevY)
			{
				--X;
				--Y;
				Reversed.push_back({' ', Old[X], X + 1, Y + 1});
			}
			if (D > 0)
			{
				if (X == PrevX)
				{
					--Y;
					Reversed.push_back({'+', New[Y], X, Y + 1});
				}
				else
				{
					--X;
					Reversed.push_back({'-', Old[X], X + 1, Y});
				}
			}
		}
		std::reverse(Reversed.begin(), Reversed.end());
		return Reversed;
	}
}

std::string MakeUnifiedDiff(const std::string& Path, const std::string& OldText, const std::string& NewText, int ContextLines)
{
	const std::vector<std::string_view> Old = SplitLines(OldText);
	const std::vector<std::string_view> New = SplitLines(NewText);

	// The common head and tail need no search, which keeps large files with small changes cheap.
	size_t Head = 0;
	while (Head < Old.size() && Head < New.size() && Old[Head] == New[Head])
	{
		++Head;
	}
	size_t Tail = 0;
	while (Tail < Old.size() - Head && Tail < New.size() - Head && Old[Old.size() - 1 - Tail] == New[New.size() - 1 - Tail])
	{
		++Tail;
	}
	std::vector<FEdit> Edits;
	for (size_t Index = 0; Index < Head; ++Index)
	{
		Edits.push_back({' ', Old[Index], static_cast<int>(Index + 1), static_cast<int>(Index + 1)});
	}
	const std::vector<std::string_view> OldMiddle(Old.begin() + Head, Old.end() - Tail);
	const std::vector<std::string_view> NewMiddle(New.begin() + Head, New.end() - Tail);
	for (FEdit Edit : DiffLines(OldMiddle, NewMiddle))
	{
		Edit.OldNumber += static_cast<int>(Head);
		Edit.NewNumber += static_cast<int>(Head);
		Edits.push_back(Edit);
	}
	for (size_t Index = Tail; Index > 0; --Index)
	{
		const int OldNumber = static_cast<int>(Old.size() - Index + 1);
		const int NewNumber = static_cast<int>(New.size() - Index + 1);
		Edits.push_back({' ', Old[Old.size() - Index], OldNumber, NewNumber});
	}

	std::string Out;
	size_t Index = 0;
	while (Index < Edits.size())
	{
		while (Index < Edits.size() && Edits[Index].Kind == ' ')
		{
			++Index;
		}
		if (Index == Edits.size())
		{
			break;
		}
		const size_t First = Index >= static_cast<size_t>(ContextLines) ? Index - ContextLines : 0;
		size_t Last = Index;
		// Extend the hunk while the next change is close enough for the contexts to touch.
		for (size_t Scan = Index; Scan < Edits.size(); ++Scan)
		{
			if (Edits[Scan].Kind != ' ')
			{
				Last = Scan;
			}
			else if (Scan - Last > static_cast<size_t>(2 * ContextLines))
			{
				break;
			}
		}
		const size_t End = std::min(Edits.size(), Last + 1 + ContextLines);

		int OldStart = 0;
		int NewStart = 0;
		int OldCount = 0;
		int NewCount = 0;
		for (size_t Line = First; Line < End; ++Line)
		{
			const FEdit& Edit = Edits[Line];
			if (Edit.Kind != '+')
			{
				OldStart = OldStart ? OldStart : Edit.OldNumber;
				++OldCount;
			}
			if (Edit.Kind != '-')
			{
				NewStart = NewStart ? NewStart : Edit.NewNumber;
				++NewCount;
			}
		}
		if (OldCount == 0)
		{
			OldStart = Edits[First].OldNumber;
		}
		if (NewCount == 0)
		{
			NewStart = Edits[First].NewNumber;
		}
		if (Out.empty())
		{
			Out += "--- a/" + Path + "\n+++ b/" + Path + "\n";
		}
		Out += "@@ -" + std::to_string(OldStart) + "," + std::to_string(OldCount) + " +" + std::to_string(NewStart) + "," + std::to_string(NewCount) + " @@\n";
		for (size_t Line = First; Line < End; ++Line)
		{
			Out += Edits[Line].Kind;
			Out.append(Edits[Line].Line);
			Out += '\n';
		}
		Index = End;
	}
	return Out;
}
