#include <algorithm>
#include <cstring>
#include <string>

#include <QCoreApplication>
#include <QGeoPositionInfo>
#include <QIODevice>
#include <QNmeaPositionInfoSource>

#include "receiver/NmeaPeer.h"

namespace korvel {
namespace {

/// A line on which bytes have just arrived.
class Line final : public QIODevice {
 public:
    Line() { open(QIODevice::ReadOnly); }

    void arrive(std::string_view bytes) {
        waiting_ = bytes;
        emit readyRead();
    }

    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override {
        return static_cast<qint64>(waiting_.size()) + QIODevice::bytesAvailable();
    }
    bool canReadLine() const override {
        return waiting_.find('\n') != std::string_view::npos || QIODevice::canReadLine();
    }

 protected:
    qint64 readData(char* into, qint64 most) override {
        const std::size_t count = std::min(waiting_.size(), static_cast<std::size_t>(most));
        std::memcpy(into, waiting_.data(), count);
        waiting_.remove_prefix(count);
        return static_cast<qint64>(count);
    }
    qint64 writeData(const char* /*bytes*/, qint64 /*count*/) override { return -1; }

 private:
    std::string_view waiting_;
};

class QtPeer final : public NmeaPeer {
 public:
    QtPeer() {
        QObject::connect(&source_, &QGeoPositionInfoSource::positionUpdated, &source_,
                         [this] { ++positions_; });
        source_.setDevice(&line_);
        source_.startUpdates();
    }

    void feed(std::string_view bytes) override {
        line_.arrive(bytes);
        QCoreApplication::processEvents();
    }
    std::uint64_t positions() const override { return positions_; }

 private:
    Line line_;
    QNmeaPositionInfoSource source_{QNmeaPositionInfoSource::RealTimeMode};
    std::uint64_t positions_ = 0;
};

}  // namespace

std::unique_ptr<NmeaPeer> makeNmeaPeer() {
    static int argc = 1;
    static char name[] = "bench_nmea";
    static char* argv[] = {name, nullptr};
    static QCoreApplication application(argc, argv);
    return std::make_unique<QtPeer>();
}

}  // namespace korvel
