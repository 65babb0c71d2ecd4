#include "BackendScenario.h"

#include <fstream>
#include <sstream>

#include <rapidjson/document.h>
#include <rapidjson/error/en.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

namespace
{
	std::string WriteCompact(const rapidjson::Value& Value)
	{
		rapidjson::StringBuffer Buffer;
		rapidjson::Writer<rapidjson::StringBuffer> Writer(Buffer);
		Value.Accept(Writer);
		return std::string(Buffer.GetString(), Buffer.GetSize());
	}

	bool ParseFault(const rapidjson::Value& Value, const std::string& Where, FScenarioFault& OutFault, std::string& OutError)
	{
		if (!Value.IsObject())
		{
			OutError = Where + " must be an object";
			return false;
		}
		for (auto Member = Value.MemberBegin(); Member != Value.MemberEnd(); ++Member)
		{
			const std::string Key = Member->name.GetString();
			const rapidjson::Value& Field = Member->value;
			if (Key == "code" && Field.IsInt() && Field.GetInt() >= 200 && Field.GetInt() <= 599)
			{
				OutFault.Code = Field.GetInt();
			}
			else if (Key == "body" && Field.IsString())
			{
				OutFault.bHasBody = true;
				OutFault.Body.assign(Field.GetString(), Field.GetStringLength());
			}
			else if (Key == "delay_ms" && Field.IsInt() && Field.GetInt() >= 0)
			{
				OutFault.DelayMs = Field.GetInt();
			}
			else if (Key == "close" && Field.IsBool())
			{
				OutFault.bClose = Field.GetBool();
			}
			else
			{
				OutError = Where + ": unknown key or bad value for \"" + Key + "\"";
				return false;
			}
		}
		return true;
	}

	bool ParseTurn(const rapidjson::Value& Value, size_t Index, FScenarioTurn& OutTurn, std::string& OutError)
	{
		const std::string Where = "turn " + std::to_string(Index + 1);
		if (!Value.IsObject())
		{
			OutError = Where + " must be an object";
			return false;
		}
		for (auto Member = Value.MemberBegin(); Member != Value.MemberEnd(); ++Member)
		{
			const std::string Key = Member->name.GetString();
			const rapidjson::Value& Field = Member->value;
			if (Key == "pending_polls" && Field.IsInt() && Field.GetInt() >= 0)
			{
				OutTurn.PendingPolls = Field.GetInt();
			}
			else if (Key == "pending_status" && Field.IsString())
			{
				OutTurn.PendingStatus = Field.GetString();
			}
			else if (Key == "response" && Field.IsObject())
			{
				OutTurn.bHasResponse = true;
				OutTurn.ResponseJson = WriteCompact(Field);
			}
			else if (Key == "error" && Field.IsString())
			{
				OutTurn.bHasError = true;
				OutTurn.Error.assign(Field.GetString(), Field.GetStringLength());
			}
			else if (Key == "final_status" && Field.IsString())
			{
				OutTurn.FinalStatus = Field.GetString();
			}
			else if (Key == "command")
			{
				if (!ParseFault(Field, Where + " \"command\"", OutTurn.Command, OutError))
				{
					return false;
				}
			}
			else if (Key == "status")
			{
				if (!ParseFault(Field, Where + " \"status\"", OutTurn.Status, OutError))
				{
					return false;
				}
			}
			else
			{
				OutError = Where + ": unknown key or bad value for \"" + Key + "\"";
				return false;
			}
		}
		if (OutTurn.bHasResponse && OutTurn.bHasError)
		{
			OutError = Where + ": \"response\" and \"error\" exclude each other";
			return false;
		}
		return true;
	}
}

std::string FScenarioTurn::BuildFinalStatusBody() const
{
	rapidjson::StringBuffer Buffer;
	rapidjson::Writer<rapidjson::StringBuffer> Writer(Buffer);
	Writer.StartObject();
	Writer.Key("status");
	const std::string Word = !FinalStatus.empty() ? FinalStatus : (bHasError ? "FAILED" : "COMPLETED");
	Writer.String(Word.c_str(), static_cast<rapidjson::SizeType>(Word.size()));
	if (bHasResponse)
	{
		Writer.Key("response");
		Writer.RawValue(ResponseJson.c_str(), ResponseJson.size(), rapidjson::kObjectType);
	}
	if (bHasError)
	{
		Writer.Key("error");
		Writer.String(Error.c_str(), static_cast<rapidjson::SizeType>(Error.size()));
	}
	Writer.EndObject();
	return std::string(Buffer.GetString(), Buffer.GetSize());
}

std::string FScenarioTurn::GetPendingStatus(int PollIndex) const
{
	if (!PendingStatus.empty())
	{
		return PendingStatus;
	}
	// A real backend queues first, then works.
	return PollIndex == 0 ? "PENDING" : "IN_PROGRESS";
}

bool ParseScenario(const std::string& JsonText, FScenario& OutScenario, std::string& OutError)
{
	rapidjson::Document Document;
	Document.Parse(JsonText.c_str(), JsonText.size());
	if (Document.HasParseError())
	{
		OutError = std::string("scenario is not valid JSON at offset ") + std::to_string(Document.GetErrorOffset()) + ": "
			+ rapidjson::GetParseError_En(Document.GetParseError());
		return false;
	}
	const rapidjson::Value* Turns = &Document;
	if (Document.IsObject())
	{
		const auto Found = Document.FindMember("turns");
		if (Found == Document.MemberEnd())
		{
			OutError = "scenario object has no \"turns\" list";
			return false;
		}
		Turns = &Found->value;
	}
	if (!Turns->IsArray())
	{
		OutError = "scenario must be a list of turns";
		return false;
	}
	FScenario Parsed;
	for (rapidjson::SizeType Index = 0; Index < Turns->Size(); ++Index)
	{
		FScenarioTurn Turn;
		if (!ParseTurn((*Turns)[Index], Index, Turn, OutError))
		{
			return false;
		}
		Parsed.Turns.push_back(std::move(Turn));
	}
	OutScenario = std::move(Parsed);
	return true;
}

bool LoadScenarioFile(const std::string& Path, FScenario& OutScenario, std::string& OutError)
{
	std::ifstream File(Path, std::ios::binary);
	if (!File)
	{
		OutError = "cannot open scenario file '" + Path + "'";
		return false;
	}
	std::stringstream Content;
	Content << File.rdbuf();
	if (!ParseScenario(Content.str(), OutScenario, OutError))
	{
		OutError = "'" + Path + "': " + OutError;
		return false;
	}
	return true;
}
