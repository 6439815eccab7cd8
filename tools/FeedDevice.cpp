#include "tools/FeedDevice.h"

#include <chrono>
#include <utility>

namespace korvel {

class FeedDevice::Line final : public SerialDevice {
 public:
    explicit Line(FeedDevice& feed) : feed_(feed) {
        const std::scoped_lock lock(feed_.mutex_);
        ++feed_.openLines_;
        feed_.arriving_.clear();
    }
    Line(const Line&) = delete;
    Line& operator=(const Line&) = delete;
    ~Line() override {
        const std::scoped_lock lock(feed_.mutex_);
        --feed_.openLines_;
        feed_.changed_.notify_all();
    }

    SystemError readLineSettings(LineSettings& /*settings*/) override { return kNoError; }
    SystemError applyLineSettings(const LineSettings& /*settings*/) override { return kNoError; }
    SystemError setTimeouts(const SerialTimeouts& /*timeouts*/) override { return kNoError; }

    Transfer read(std::span<char> into) override {
        constexpr std::chrono::milliseconds kWait{100};
        std::unique_lock lock(feed_.mutex_);
        // The first read that finds nothing ends at once: the port may not have delivered yet what
        // the one before it brought.
        if (feed_.arriving_.empty() && !std::exchange(undelivered_, false)) {
            feed_.idle_ = true;
            feed_.changed_.notify_all();
            feed_.changed_.wait_for(lock, kWait,
                                    [this] { return aborted_ || !feed_.arriving_.empty(); });
            feed_.idle_ = feed_.arriving_.empty();
        }
        if (aborted_)
            return {kErrorOperationAborted, 0};
        const std::size_t count = feed_.arriving_.copy(into.data(), into.size());
        feed_.arriving_.erase(0, count);
        undelivered_ = undelivered_ || count != 0;
        return {kNoError, count};
    }
    bool waitsForBytes() const override { return true; }
    Transfer write(std::string_view bytes) override { return {kNoError, bytes.size()}; }
    void clearError() override {}
    void abort() override {
        const std::scoped_lock lock(feed_.mutex_);
        aborted_ = true;
        feed_.changed_.notify_all();
    }

 private:
    FeedDevice& feed_;
    bool aborted_ = false;
    bool undelivered_ = false;  ///< the last read brought something
};

SerialDeviceOpener FeedDevice::opener() {
    return [this](std::string_view /*path*/, SystemError& error) -> std::unique_ptr<SerialDevice> {
        error = kNoError;
        return std::make_unique<Line>(*this);
    };
}

void FeedDevice::send(std::string_view bytes) {
    std::unique_lock lock(mutex_);
    if (openLines_ == 0 || bytes.empty())
        return;
    arriving_ = bytes;
    idle_ = false;
    changed_.notify_all();
    changed_.wait(lock, [this] { return idle_ || openLines_ == 0; });
}

}  // namespace korvel
