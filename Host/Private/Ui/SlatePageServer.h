#pragma once

#include "Ui/SlatePageSnapshot.h"

#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace httplib
{
	class Server;
}

/**
 * Serves the editor's tabs as one web page on loopback. The page long-polls /frame for the widget tree
 * and posts its input to /event; the server's own threads only hand text over, and Tick, on the game
 * thread, applies the input as Slate events and publishes a new frame when the tree changed.
 */
class FSlatePageServer
{
public:
	FSlatePageServer();
	~FSlatePageServer();

	/** Listens on 127.0.0.1:Port (0: a free port); false with the reason when it can't. */
	bool Start(int Port, std::string& OutError);
	void Stop();
	int GetPort() const
	{
		return BoundPort;
	}

	/** Game thread: applies the page's waiting events, then publishes the frame if it changed. */
	void Tick();

	/** The frame the page gets now, and its version. */
	std::string GetFrame(int64_t& OutVersion) const;

private:
	void PublishFrame(const std::string& Frame);

	std::unique_ptr<httplib::Server> Server;
	std::thread ServerThread;
	int BoundPort = 0;

	mutable std::mutex Mutex;
	std::condition_variable FrameChanged;
	std::string CurrentFrame;
	int64_t FrameVersion = 0;
	std::vector<std::string> PendingEvents;
	std::vector<std::string> ImageFiles;
	bool bStopping = false;

	// Game thread only.
	FSlatePageSnapshot Snapshot;
	int64_t LastEventSeq = 0;
	double LastBuildSeconds = -1.0;
	double LastBuildDuration = 0.0;
	bool bEventsSinceBuild = true;
};
