#include "receiver/SerialPort.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <utility>

#include "config/Text.h"
#include "config/texts/ReceiverTexts.h"
#include "receiver/PortSettings.h"

namespace korvel {
namespace {

using std::chrono::milliseconds;

constexpr std::string_view kDevicePrefix = R"(\\.\)";
constexpr std::size_t kNameLimit = 15;

constexpr milliseconds kPassPeriod{100};
constexpr milliseconds kAbortPeriod{20};
constexpr int kFailureLimit = 6;
constexpr int kAbortRetryLimit = 6;

constexpr milliseconds kWriteStep{5};
constexpr int kWriteSteps = 20;
constexpr std::size_t kPendingLimit = 4096;

/// In the order in which they are tried: a speed counts when the text begins with one of these.
constexpr std::array<std::string_view, 9> kSpeeds = {"9600",  "4800",  "2400",   "14400", "19200",
                                                     "38400", "57600", "115200", "1200"};

int parseNumber(std::string_view text) {
    int number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

int numberAfterM(std::string_view settings) {
    const std::size_t m = settings.find('M');
    return m == std::string_view::npos ? 0 : parseNumber(settings.substr(m + 1));
}

std::optional<std::uint32_t> matchSpeed(std::string_view text) {
    const auto* const found =
        std::find_if(kSpeeds.begin(), kSpeeds.end(),
                     [&](std::string_view speed) { return text.starts_with(speed); });
    if (found == kSpeeds.end())
        return std::nullopt;
    return static_cast<std::uint32_t>(parseNumber(*found));
}

std::string openFailedText(SystemError error) {
    switch (error) {
        case kErrorFileNotFound:
            return std::string(text(kReceiverTexts.invalidPort));
        case kErrorAccessDenied:
            return std::string(text(kReceiverTexts.portOpen));
        case kErrorDeviceDoesNotExist:
            return std::string(text(kReceiverTexts.portMissing));
        default:
            return formatText(kReceiverTexts.portOpenFailed, {static_cast<int>(error)});
    }
}

/// 8-N-1 without any flow control on the way in. Output XON/XOFF and the replacement of bytes with
/// errors stay as the port had them.
LineSettings nmeaLine(const LineSettings& before, std::uint32_t baud) {
    LineSettings line;
    line.baud = baud;
    line.xonXoffOutput = before.xonXoffOutput;
    line.replaceErrors = before.replaceErrors;
    return line;
}

/// A read waits for a gap that is longer than a character takes at this speed.
SerialTimeouts timeoutsAt(std::uint32_t baud) {
    const std::uint32_t characterMs = 1 + 10000 / baud;
    return {.readIntervalMs = characterMs + 1,
            .readMultiplierMs = characterMs,
            .readConstantMs = 5,
            .writeMultiplierMs = 0,
            .writeConstantMs = 0};
}

}  // namespace

SerialPort::SerialPort(SerialDeviceOpener opener, const Clock& clock, Threading& threading)
    : opener_(std::move(opener)), clock_(clock), threading_(threading) {}

SerialPort::~SerialPort() { close(); }

std::string SerialPort::open(std::string_view settings) {
    portNumber_ = 0;
    settings_.clear();
    activity_.clear();
    readFailed_ = false;
    if (isOpen())
        return std::string(text(kReceiverTexts.portOpen));
    const PortSettings wanted = PortSettings::parse(settings).value_or(PortSettings{});
    if (wanted.device.size() >= kNameLimit)
        return std::string(text(kReceiverTexts.badSetting));
    if (!makeEvents())
        return openFailedText(kErrorTooManyOpenFiles);
    const std::string path = std::string(kDevicePrefix) + wanted.device;
    SystemError error = kNoError;
    auto device = opener_(path, error);
    if (device == nullptr)
        return openFailedText(error);
    if (std::string failure = setUpLine(*device, wanted.speed); !failure.empty())
        return failure;
    device_ = std::move(device);
    devicePath_ = path;
    portNumber_ = numberAfterM(settings);
    settings_ = settings;
    return {};
}

/// Those that are still missing; false when the system has none to give.
bool SerialPort::makeEvents() {
    return std::ranges::all_of(
        std::array{&stopEvent_, &writeEvent_, &threadEnded_},
        [this](Event* event) {
            if (!*event)
                *event = threading_.makeEvent(Event::Reset::Manual);
            return static_cast<bool>(*event);
        });
}

std::string SerialPort::setUpLine(SerialDevice& device, std::string_view speed) const {
    LineSettings before;
    if (device.readLineSettings(before) != kNoError)
        return std::string(text(kReceiverTexts.portUsed));
    const auto baud = matchSpeed(speed);
    if (!baud)
        return std::string(text(kReceiverTexts.unsupportedBaud));
    SystemError error = device.applyLineSettings(nmeaLine(before, *baud));
    if (error == kErrorInvalidParameter) {
        // A speed that this device cannot run at.
        return std::string(text(kReceiverTexts.unsupportedBaud));
    }
    if (error == kNoError)
        error = device.setTimeouts(timeoutsAt(*baud));
    return error == kNoError ? std::string() : openFailedText(error);
}

void SerialPort::startThread() {
    if (!isOpen() || thread_.joinable())
        return;
    stopEvent_.reset();
    threadEnded_.reset();
    failuresInARow_ = 0;
    abortsInARow_ = 0;
    thread_ = threading_.startThread([this] { run(); });
    if (!thread_.joinable())
        readFailed_ = true;  // no thread to be had: as silent as a dead device
}

void SerialPort::setListener(LineListener* listener) { *listener_.lock() = listener; }

void SerialPort::close() {
    setListener(nullptr);
    if (isOpen()) {
        stopThread();
        device_.reset();
        devicePath_.clear();
    }
    buffer_.lock()->clear();
    pendingWrite_.lock()->clear();  // meant for the device that is gone
    writeEvent_.reset();
    activity_.clear();
    readFailed_ = false;
}

void SerialPort::stopThread() {
    if (!thread_.joinable())
        return;
    stopEvent_.set();
    // Repeated, since an abort may come just before the transfer that it was meant for.
    do {
        device_->abort();
    } while (!threadEnded_.wait(kAbortPeriod));
    thread_.join();
    threadId_ = std::thread::id();
}

void SerialPort::write(std::string_view bytes) {
    if (bytes.empty() || !isOpen())
        return;
    trace(bytes, "wrt");
    // The port's own thread, in a listener, would wait for itself.
    const bool mayWait = std::this_thread::get_id() != threadId_.load();
    for (int step = 0; mayWait && step < kWriteSteps && writeEvent_.isSet(); ++step)
        std::this_thread::sleep_for(kWriteStep);
    const auto pending = pendingWrite_.lock();
    if (pending->size() + bytes.size() <= kPendingLimit) {
        pending->append(bytes);
        writeEvent_.set();
    }
}

int SerialPort::readLine(std::span<char> out) { return buffer_.lock()->readLine(out); }

void SerialPort::setDelimiter(std::string_view delimiter) {
    buffer_.lock()->setDelimiter(delimiter);
}

void SerialPort::setTrace(TraceHook hook) { traceHook_ = std::move(hook); }

void SerialPort::trace(std::string_view bytes, std::string_view tag) const {
    if (traceHook_)
        traceHook_(bytes, tag);
}

void SerialPort::run() {
    threadId_ = std::this_thread::get_id();
    milliseconds timeout = device_->waitsForBytes() ? milliseconds(0) : kPassPeriod;
    Event::waitAny({&stopEvent_, &writeEvent_}, timeout);
    while (!stopEvent_.isSet()) {
        sendPending();
        readWaiting();
        if (readFailed_)
            timeout = Event::kInfinite;
        Event::waitAny({&stopEvent_, &writeEvent_}, timeout);
    }
    threadEnded_.set();
}

void SerialPort::sendPending() {
    std::string bytes;
    {
        const auto pending = pendingWrite_.lock();
        bytes.swap(*pending);
        writeEvent_.reset();
    }
    if (!bytes.empty()) {
        const SerialDevice::Transfer sent = device_->write(bytes);
        trace(std::string_view(bytes).substr(0, sent.count), "xmt");
    }
}

/// Reads until the line falls silent. On a line that never does, a write that waits comes between.
void SerialPort::readWaiting() {
    while (!readFailed_ && readChunk() && !stopEvent_.isSet() && !writeEvent_.isSet()) {
    }
}

/// One byte, and at once what follows it, as far as the buffer has room: a sentence that is half
/// read must not be pushed out by a chunk that only just does not fit. True when there may be more.
bool SerialPort::readChunk() {
    std::array<char, LineSplitter::kCapacity> chunk;  // NOLINT(*-member-init): filled by the reads
    const SerialDevice::Transfer first = device_->read(std::span(chunk).first(1));
    if (first.error != kNoError)
        return retriesAfter(first.error);
    failuresInARow_ = 0;
    abortsInARow_ = 0;
    if (first.count == 0)
        return false;
    const std::size_t wanted = std::max<std::size_t>(buffer_.lock()->room(), 1);
    const SerialDevice::Transfer rest = device_->read(std::span(chunk).subspan(1, wanted - 1));
    receive({chunk.data(), 1 + rest.count});
    if (rest.error != kNoError)
        return retriesAfter(rest.error);
    return 1 + rest.count == wanted;
}

/// Some drivers answer "aborted" for ever once their device is gone, so its retries are few; the
/// next pass tries again.
bool SerialPort::retriesAfter(SystemError error) {
    if (error == kErrorOperationAborted) {
        device_->clearError();
        abortsInARow_ = (abortsInARow_ + 1) % kAbortRetryLimit;
        return abortsInARow_ != 0;
    }
    ++failuresInARow_;
    if (error == kErrorDeviceFailure || failuresInARow_ >= kFailureLimit)
        readFailed_ = true;
    return false;
}

void SerialPort::receive(std::string_view bytes) {
    activity_.count(bytes.size());
    trace(bytes, "rcv");
    buffer_.lock()->append(bytes);
    deliverLines();
}

/// The listener is looked for before a line is taken, since a line that nobody takes stays
/// buffered; each lock is released before the next is taken.
void SerialPort::deliverLines() {
    std::array<char, kMaxLineLength + 1> line{};
    while (hasListener()) {
        const int length = readLine(line);
        if (length == LineSplitter::kNoLine)
            return;
        if (length <= 0)
            continue;
        const auto listener = listener_.lock();
        if (*listener != nullptr)
            (*listener)->onLine(*this, {line.data(), static_cast<std::size_t>(length)});
    }
}

bool SerialPort::hasListener() const { return listener_.copyIfFree().value_or(nullptr) != nullptr; }

}  // namespace korvel
