#include "tools/png/PngModule.h"

#include <array>
#include <exception>

#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include "qtpaint/QtCanvas.h"

namespace korvel {
namespace {

QImage drawn(int width, int height, const std::function<void(Canvas&)>& paint) {
    DisplayFonts fonts{QString()};
    LabelCache labels(fonts);
    QImage image(width, height, QImage::Format_RGB32);
    QPainter painter(&image);
    QtCanvas canvas(painter, labels,
                    {0, 0, static_cast<double>(width), static_cast<double>(height)});
    paint(canvas);
    return image;
}

}  // namespace
}  // namespace korvel

extern "C" Q_DECL_EXPORT korvel::PngFunction korvelPngPicture;

bool korvelPngPicture(int width, int height, const std::function<void(korvel::Canvas&)>& paint,
                      std::string& png) try {
    // The toolkit wants words that live as long as it does, and no display.
    std::array<std::string, 3> words{"korvelctl", "-platform", "offscreen"};
    std::array<char*, 4> arguments{words[0].data(), words[1].data(), words[2].data(), nullptr};
    int count = words.size();
    const QGuiApplication toolkit(count, arguments.data());

    QBuffer file;
    file.open(QIODevice::WriteOnly);
    if (!korvel::drawn(width, height, paint).save(&file, "PNG"))
        return false;
    png = file.data().toStdString();
    return true;
} catch (const std::exception&) {
    return false;
}
