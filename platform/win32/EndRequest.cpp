#include "platform/EndRequest.h"

namespace korvel {

// The end of a session reaches the window.

EndRequest::EndRequest() = default;

EndRequest::~EndRequest() = default;

int EndRequest::descriptor() const { return -1; }

}  // namespace korvel
