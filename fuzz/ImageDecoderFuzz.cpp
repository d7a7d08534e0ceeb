#include "FuzzTarget.h"

#include "ImageDecoder.h"

#include <QtCore/QByteArray>
#include <QtGui/QGuiApplication>
#include <QtGui/QImage>

namespace {

// Drawings may contain text, which needs fonts.
void EnsureApplication()
{
    static int count = 1;
    static char name[] = "ImageDecoderFuzz";
    static char* arguments[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QGuiApplication application(count, arguments);
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    EnsureApplication();
    constexpr qint64 maxPixels = 1 << 20;
    constexpr int edge = 512;
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const QImage image = ImageDecoder::Decode(bytes, maxPixels, edge);
    Require(image.width() <= edge && image.height() <= edge, "no picture is larger than wanted");
    Require(image.isNull() == image.size().isEmpty(), "a picture has pixels");
    return 0;
}
