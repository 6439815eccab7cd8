#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <QLocalServer>

#include "platform/FolderLock.h"

namespace korvel {

/// There is one window for each profile folder: a second start hands its arguments over to the
/// first one and ends. Two programs never write the same profile, journals and log. Main thread
/// only.
class OneWindow {
 public:
    /// What another start was asked for: its arguments, and the folder that it was started in,
    /// which its file names are relative to.
    struct Start {
        std::vector<std::string> arguments;
        std::filesystem::path folder;
    };

    /// Claims the profile folder.
    explicit OneWindow(const std::filesystem::path& profileFolder);

    /// Whether this program may write in the folder. Where another one may and does not answer,
    /// this one is to keep nothing.
    [[nodiscard]] bool isOurs() const { return lock_.holder() != FolderLock::Holder::Other; }

    /// Hands the arguments to the window that the folder has already. Nothing when there is none,
    /// or none that answers within some seconds, else its message, empty on success.
    [[nodiscard]] std::optional<std::string> handOver(
        std::span<const std::string_view> arguments) const;

    /// Answers other starts from now on: `onStart` returns the message for whoever has started,
    /// empty on success.
    void listen(std::function<std::string(const Start&)> onStart);

 private:
    void answer(QLocalSocket& caller);

    FolderLock lock_;
    QString name_;
    QLocalServer server_;
    std::function<std::string(const Start&)> onStart_;
};

}  // namespace korvel
