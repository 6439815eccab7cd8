#include "window/OneWindow.h"

#include <system_error>

#include <QByteArrayList>
#include <QCryptographicHash>
#include <QDataStream>
#include <QElapsedTimer>
#include <QLocalSocket>
#include <QThread>

#include "platform/PathText.h"

namespace korvel {
namespace {

// The other window may be about to begin listening, or busy.
constexpr int kConnectMs = 3000;
constexpr int kAnswerMs = 5000;
constexpr int kPauseMs = 50;

QByteArray bytesOf(const std::filesystem::path& path) {
    return QByteArray::fromStdString(textOf(path));
}

/// The same for every way to name the folder, and different for every folder.
QString serverName(const std::filesystem::path& folder) {
    std::error_code unknown;
    std::filesystem::path whole = std::filesystem::canonical(folder, unknown);
    const QByteArray bytes = bytesOf(unknown ? folder : whole);
    return QStringLiteral("korvel-") +
           QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex());
}

/// Tries until the time is over: a server that is not there yet refuses at once.
bool connectTo(QLocalSocket& socket, const QString& name, int patienceMs) {
    QElapsedTimer since;
    since.start();
    do {
        socket.connectToServer(name);
        if (socket.waitForConnected(kPauseMs))
            return true;
        QThread::msleep(kPauseMs);
    } while (since.elapsed() < patienceMs);
    return false;
}

}  // namespace

OneWindow::OneWindow(const std::filesystem::path& profileFolder)
    : lock_(profileFolder), name_(serverName(profileFolder)) {}

std::optional<std::string> OneWindow::handOver(std::span<const std::string_view> arguments) const {
    if (lock_.holder() == FolderLock::Holder::Us)
        return std::nullopt;
    QLocalSocket socket;
    if (!connectTo(socket, name_, isOurs() ? 0 : kConnectMs))
        return std::nullopt;
    QByteArrayList list;
    for (const std::string_view argument : arguments)
        list.append(QByteArray(argument.data(), static_cast<qsizetype>(argument.size())));
    std::error_code unknown;
    QDataStream stream(&socket);
    stream << list << bytesOf(std::filesystem::current_path(unknown));
    QByteArray answer;
    do {
        stream.startTransaction();
        stream >> answer;
        if (stream.commitTransaction())
            return answer.toStdString();
    } while (socket.waitForReadyRead(kAnswerMs));
    return std::nullopt;
}

void OneWindow::listen(std::function<std::string(const Start&)> onStart) {
    onStart_ = std::move(onStart);
    QObject::connect(&server_, &QLocalServer::newConnection, &server_, [this] {
        while (QLocalSocket* const caller = server_.nextPendingConnection()) {
            QObject::connect(caller, &QLocalSocket::disconnected, caller, &QObject::deleteLater);
            QObject::connect(caller, &QLocalSocket::readyRead, caller,
                             [this, caller] { answer(*caller); });
            answer(*caller);
        }
    });
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    // What a program that was killed has left; the folder is ours.
    QLocalServer::removeServer(name_);
    // Without it, a second start finds nobody and keeps nothing.
    server_.listen(name_);
}

/// Once all of it has arrived.
void OneWindow::answer(QLocalSocket& caller) {
    QDataStream stream(&caller);
    QByteArrayList arguments;
    QByteArray folder;
    stream.startTransaction();
    stream >> arguments >> folder;
    if (!stream.commitTransaction())
        return;
    Start start{.arguments = {}, .folder = pathOf(folder.toStdString())};
    for (const QByteArray& argument : arguments)
        start.arguments.push_back(argument.toStdString());
    stream << QByteArray::fromStdString(onStart_(start));
    caller.flush();
    caller.disconnectFromServer();
}

}  // namespace korvel
