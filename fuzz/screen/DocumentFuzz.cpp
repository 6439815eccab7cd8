// A whole session on nonsense: a profile with any values, then lines of a receiver, commands,
// fingers and ticks in any order, and every page painted on the way.
#include <cstdint>
#include <fuzzer/FuzzedDataProvider.h>
#include <memory>
#include <string>
#include <string_view>

#include "MemoryFiles.h"
#include "cockpit/CKorvelDoc.h"
#include "config/ProfileFile.h"
#include "config/Settings.h"
#include "geo/Geodesy.h"
#include "paint/B612Metrics.h"
#include "paint/ColorScheme.h"
#include "paint/MapColorCache.h"
#include "paint/RecordingCanvas.h"
#include "platform/RegistryProfile.h"
#include "platform/VirtualClock.h"
#include "receiver/SentenceText.h"
#include "screen/PagePainter.h"
#include "screen/Screen.h"
#include "screen/ScreenHand.h"

namespace korvel {
namespace {

constexpr int kMostSettings = 6;
constexpr int kMostActs = 24;
constexpr int kMostLetters = 60;

/// A receiver that says what it is told to.
class ToldSource final : public SentenceSource {
 public:
    std::string start(SentenceListener& listener) override {
        listener_ = &listener;
        return {};
    }
    void stop() override { listener_ = nullptr; }
    bool isRunning() const override { return listener_ != nullptr; }
    bool isReceiving() override { return true; }
    std::string label() const override { return "told"; }

    void say(std::string_view line, std::int64_t ms) {
        if (listener_ != nullptr)
            listener_->onLine(line, ms);
    }

 private:
    SentenceListener* listener_ = nullptr;
};

/// What no session changes.
struct Look {
    B612Metrics letters;
    ColorScheme scheme;
    MapColorCache colors{scheme};
};

const Look& look() {
    static const Look look;
    return look;
}

class Session {
 public:
    explicit Session(FuzzedDataProvider& input)
        : input_(input), profile_("", *registry_, "p.ini", disk_) {
        const auto table = settingsTable();
        for (int i = input_.ConsumeIntegralInRange(0, kMostSettings); i > 0; --i) {
            const auto setting = input_.ConsumeIntegralInRange<std::size_t>(0, table.size() - 1);
            profile_.setString(kOptionsSection, table[setting].key, text(), true);
        }
        document_ = std::make_unique<CKorvelDoc>(
            CKorvelDoc::Foundations{profile_, clock_, [](std::string_view, SystemError& error) {
                                        error = kErrorFileNotFound;
                                        return std::unique_ptr<SerialDevice>();
                                    }});
        auto source = std::make_unique<ToldSource>();
        receiver_ = source.get();
        document_->useSource(std::move(source));
        screen_ = std::make_unique<Screen>(*document_, profile_, look().letters);
        hand_ = std::make_unique<ScreenHand>(*screen_);
        screen_->resize(800, 480, 0);
    }

    void run() {
        for (int i = 0; i < kMostActs && input_.remaining_bytes() > 0; ++i)
            act();
        tick();
        document_->endSession();
    }

 private:
    std::string text() { return input_.ConsumeRandomLengthString(kMostLetters); }
    GeoPoint place() {
        return {input_.ConsumeFloatingPointInRange(-kPi / 2, kPi / 2),
                input_.ConsumeFloatingPointInRange(-kPi, kPi)};
    }
    Point finger() {
        return {input_.ConsumeFloatingPointInRange(0.0, 800.0),
                input_.ConsumeFloatingPointInRange(0.0, 480.0)};
    }
    void tick() {
        clock_.advanceMs(input_.ConsumeIntegralInRange(1, 20'000));
        screen_->tick();
    }
    void paint() {
        RecordingCanvas canvas(screen_->areas().page().width, screen_->areas().page().height);
        screen_->updateFeeds();
        const CockpitData shown = screen_->dataToShow();
        PagePainter(look().colors).paint(canvas, screen_->page(), screen_->scene(shown, {}));
    }
    /// A sentence whose checksum fits half of the time.
    void say() {
        std::string line = text();
        if (input_.ConsumeBool())
            line = sentenceOf(line);
        receiver_->say(line, clock_.tickMs());
    }

    void act() {
        Flight& flight = document_->flight();
        switch (input_.ConsumeIntegralInRange(0, 17)) {
            case 0:
            case 1:
                return say();
            case 2:
                return tick();
            case 3:
                return screen_->showPage(PageId{input_.ConsumeIntegralInRange(0, kPageCount - 1)});
            case 4:
                return paint();
            case 5:
                (void)flight.plan().enterRoute(text());
                return;
            case 6:
                (void)flight.navigation().DirectTo(text(), text());
                return;
            case 7:
                return flight.startSimulator(
                    {.position = place(),
                     .headingMag = input_.ConsumeIntegralInRange(-720, 720),
                     .speedKt = input_.ConsumeFloatingPointInRange(-1e3, 1e6),
                     .altitudeFt = input_.ConsumeIntegral<std::int32_t>()});
            case 8:
                return flight.stopSimulator();
            case 9:
                return flight.setTimeFactor(input_.ConsumeIntegral<int>());
            case 10:
                (void)(input_.ConsumeBool() ? flight.plan().undo() : flight.plan().redo());
                return;
            case 11:
                (void)flight.plan().reverse();
                return;
            case 12:
                return document_->setAltimeterOffsetFt(input_.ConsumeIntegral<std::int32_t>());
            case 13:
                return screen_->zoom(input_.ConsumeIntegralInRange(-20, 20));
            case 14: {
                hand_->press(finger());
                hand_->move(finger());
                return hand_->release(finger());
            }
            case 15: {
                Settings settings = document_->settings();
                settings.boundaryAltitude = input_.ConsumeIntegral<int>();
                settings.mapMask = input_.ConsumeIntegral<int>();
                settings.viewMask = input_.ConsumeIntegral<int>();
                settings.minObstacleHeight = input_.ConsumeIntegral<int>();
                return document_->applySettings(settings);
            }
            case 16:
                return document_->loadDatabases({});
            default:
                return screen_->lookAt(place());
        }
    }

    FuzzedDataProvider& input_;
    MemoryFiles disk_;
    VirtualClock clock_;
    std::unique_ptr<RegistryProfile> registry_ = openRegistryProfile();
    ProfileFile profile_;
    ToldSource* receiver_ = nullptr;  ///< the document's
    std::unique_ptr<CKorvelDoc> document_;
    std::unique_ptr<Screen> screen_;
    std::unique_ptr<ScreenHand> hand_;
};

}  // namespace
}  // namespace korvel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    korvel::Session(input).run();
    return 0;
}
