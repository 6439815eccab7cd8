#pragma once

namespace korvel {

/// Lets a program that waits in an event loop hear that the system wants it to end, so that it ends
/// as if its window had been closed. Where the system tells its windows instead, there is nothing
/// to wait for here. One at a time in a process.
class EndRequest {
 public:
    EndRequest();
    EndRequest(const EndRequest&) = delete;
    EndRequest& operator=(const EndRequest&) = delete;
    /// From here on a request ends the process at once, as usual.
    ~EndRequest();

    /// Becomes readable, and stays so, when the end is asked for; -1 for nothing to wait for, here
    /// or because no descriptor was left: isAsked() is to be looked at then.
    [[nodiscard]] int descriptor() const;
    [[nodiscard]] bool isAsked() const;
};

}  // namespace korvel
