#pragma once

#include "CoreMinimal.h"

class IHttpRequest;
class IHttpResponse;
class FHttpManager;

typedef TSharedPtr<IHttpRequest, ESPMode::ThreadSafe> FHttpRequestPtr;
typedef TSharedRef<IHttpRequest, ESPMode::ThreadSafe> FHttpRequestRef;
typedef TSharedPtr<IHttpResponse, ESPMode::ThreadSafe> FHttpResponsePtr;
typedef TSharedRef<IHttpResponse, ESPMode::ThreadSafe> FHttpResponseRef;
