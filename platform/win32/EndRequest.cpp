#include "platform/EndRequest.h"

namespace korvel {

// A log-off or a shutdown reaches the window.

EndRequest::EndRequest() = default;

EndRequest::~EndRequest() = default;

int EndRequest::descriptor() const { return -1; }

bool EndRequest::isAsked() const { return false; }

}  // namespace korvel
