#include "Ui/SlatePageServer.h"

#include "Dom/JsonObject.h"
#include "Dom/JsonValue.h"
#include "HAL/StandInClock.h"
#include "Serialization/JsonReader.h"
#include "Serialization/JsonSerializer.h"
#include "Ui/SlatePageEvents.h"

#include <httplib.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <sstream>

// The page itself, made at build time from SlatePage.html.
extern const char* const GSlatePageHtml;

namespace
{
	// The tree is read at most this often; attributes are polled, so a frame is the only way to see a change.
	constexpr double FrameIntervalSeconds = 1.0 / 30.0;
	// A large tree (a long chat full of diffs) takes long to read: its frames are spaced so that reading
	// never takes more than a fifth of the game thread.
	constexpr double MaxFrameShare = 0.2;
	constexpr auto LongPollWait = std::chrono::seconds(15);

	std::string ContentTypeOf(const std::string& Path)
	{
		auto EndsWith = [&Path](const char* Suffix)
		{
			const std::string S(Suffix);
			return Path.size() >= S.size() && Path.compare(Path.size() - S.size(), S.size(), S) == 0;
		};
		if (EndsWith(".svg"))
		{
			return "image/svg+xml";
		}
		if (EndsWith(".png"))
		{
			return "image/png";
		}
		return "application/octet-stream";
	}
}

FSlatePageServer::FSlatePageServer()
	: Server(std::make_unique<httplib::Server>())
{
}

FSlatePageServer::~FSlatePageServer()
{
	Stop();
}

bool FSlatePageServer::Start(int Port, std::string& OutError)
{
	Server->Get("/", [](const httplib::Request&, httplib::Response& Response)
	{
		Response.set_header("Cache-Control", "no-store");
		Response.set_content(GSlatePageHtml, "text/html; charset=utf-8");
	});
	Server->Get("/frame", [this](const httplib::Request& Request, httplib::Response& Response)
	{
		int64_t Since = -1;
		if (Request.has_param("since"))
		{
			Since = std::strtoll(Request.get_param_value("since").c_str(), nullptr, 10);
		}
		std::unique_lock<std::mutex> Lock(Mutex);
		FrameChanged.wait_for(Lock, LongPollWait, [this, Since]() { return bStopping || FrameVersion > Since; });
		Response.set_header("Cache-Control", "no-store");
		if (FrameVersion <= Since)
		{
			Response.status = 204;
			return;
		}
		Response.set_content("{\"version\":" + std::to_string(FrameVersion) + ",\"frame\":" + CurrentFrame + "}", "application/json");
	});
	Server->Post("/event", [this](const httplib::Request& Request, httplib::Response& Response)
	{
		{
			std::lock_guard<std::mutex> Lock(Mutex);
			PendingEvents.push_back(Request.body);
		}
		Response.status = 204;
	});
	Server->Get("/image", [this](const httplib::Request& Request, httplib::Response& Response)
	{
		const std::string Path = Request.get_param_value("path");
		bool bAllowed = false;
		{
			std::lock_guard<std::mutex> Lock(Mutex);
			bAllowed = std::find(ImageFiles.begin(), ImageFiles.end(), Path) != ImageFiles.end();
		}
		std::ifstream File(Path, std::ios::binary);
		if (!bAllowed || !File)
		{
			Response.status = 404;
			return;
		}
		std::ostringstream Contents;
		Contents << File.rdbuf();
		Response.set_header("Cache-Control", "max-age=3600");
		Response.set_content(Contents.str(), ContentTypeOf(Path).c_str());
	});

	BoundPort = Port == 0 ? Server->bind_to_any_port("127.0.0.1") : (Server->bind_to_port("127.0.0.1", Port) ? Port : -1);
	if (BoundPort <= 0)
	{
		OutError = "cannot listen on 127.0.0.1:" + std::to_string(Port);
		BoundPort = 0;
		return false;
	}
	ServerThread = std::thread([this]() { Server->listen_after_bind(); });
	return true;
}

void FSlatePageServer::Stop()
{
	{
		std::lock_guard<std::mutex> Lock(Mutex);
		bStopping = true;
	}
	FrameChanged.notify_all();
	if (ServerThread.joinable())
	{
		Server->stop();
		ServerThread.join();
	}
}

void FSlatePageServer::Tick()
{
	std::vector<std::string> Events;
	{
		std::lock_guard<std::mutex> Lock(Mutex);
		Events.swap(PendingEvents);
	}
	for (const std::string& Body : Events)
	{
		// A post holds one event or a list of them, in the order the user made them.
		TArray<TSharedPtr<FJsonValue>> List;
		TSharedPtr<FJsonValue> Parsed;
		if (!FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(UTF8_TO_TCHAR(Body.c_str())), Parsed) || !Parsed.IsValid())
		{
			continue;
		}
		const TArray<TSharedPtr<FJsonValue>>* Array = nullptr;
		if (Parsed->TryGetArray(Array))
		{
			List = *Array;
		}
		else
		{
			List.Add(Parsed);
		}
		for (const TSharedPtr<FJsonValue>& Value : List)
		{
			const TSharedPtr<FJsonObject>* Event = nullptr;
			if (Value.IsValid() && Value->TryGetObject(Event) && Event)
			{
				ApplySlatePageEvent(**Event, Snapshot);
				double Seq = 0.0;
				if ((*Event)->TryGetNumberField(TEXT("seq"), Seq))
				{
					LastEventSeq = std::max<int64_t>(LastEventSeq, static_cast<int64_t>(Seq));
				}
				bEventsSinceBuild = true;
			}
		}
	}

	const double Now = FStandInClock::GetRealSeconds();
	const double Interval = std::max(FrameIntervalSeconds, LastBuildDuration / MaxFrameShare);
	if (!bEventsSinceBuild && LastBuildSeconds >= 0.0 && Now - LastBuildSeconds < Interval)
	{
		return;
	}
	LastBuildSeconds = Now;
	bEventsSinceBuild = false;
	PublishFrame(TCHAR_TO_UTF8(*Snapshot.Build(LastEventSeq)));
	LastBuildDuration = FStandInClock::GetRealSeconds() - Now;
}

void FSlatePageServer::PublishFrame(const std::string& Frame)
{
	std::vector<std::string> Images;
	for (const FString& Image : Snapshot.GetImageFiles())
	{
		Images.push_back(TCHAR_TO_UTF8(*Image));
	}
	{
		std::lock_guard<std::mutex> Lock(Mutex);
		ImageFiles = std::move(Images);
		if (Frame == CurrentFrame)
		{
			return;
		}
		CurrentFrame = Frame;
		++FrameVersion;
	}
	FrameChanged.notify_all();
}

std::string FSlatePageServer::GetFrame(int64_t& OutVersion) const
{
	std::lock_guard<std::mutex> Lock(Mutex);
	OutVersion = FrameVersion;
	return CurrentFrame;
}
