#pragma once

#include "image-module/ImageModuleExport.h"

#include <QtCore/QString>
#include <QtGui/QImage>
#include <QtGui/QPixmap>
#include <QtWidgets/QWidget>

/// Shows a picture from the web, sharp at every device pixel ratio and in its own proportions. It takes
/// neither keyboard nor mouse and has no accessible name: the text beside it says what it means. GUI thread.
class TL_IMAGE_MODULE_EXPORT ImageLabel final : public QWidget
{
    Q_OBJECT

public:
    explicit ImageLabel(QWidget* parent = nullptr);
    ~ImageLabel() override;

    /// The box in the middle of the label into which the picture is fitted, and the radii of the picture's
    /// own corners [px]. By default the box is the whole label, and the corners are square.
    void SetPixmapParam(int width, int height, int xRadius, int yRadius);

    /// Also cuts the box to rounded corners of this radius [px], so that all apps' icons have one shape
    /// whatever their pictures look like; 0 removes the mask.
    void SetPluginMask(int radius);

    /// Fetches the picture at the address through `VXImageCache` and shows it. Shows `defaultImage`, a
    /// resource or a file, until the picture arrives and when there is none. When `defaultImage` is empty,
    /// shows nothing until then, and the program's picture `:/images/default.png` when there is none. The
    /// last of several calls counts; the same address again keeps what is shown. An empty address shows
    /// `defaultImage` alone.
    void SetImage(const QString& url, const QString& defaultImage);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void OnFetched(const QImage& image);
    void ShowPicture(const QImage& image);
    QRect GetBox() const;
    QPixmap Draw(QSize box, qreal ratio) const;

    QSize m_boxSize; // empty: the label's
    int m_xRadius = 0;
    int m_yRadius = 0;
    int m_maskRadius = 0;
    QString m_url;
    QString m_defaultImage;
    QImage m_image;
    QPixmap m_drawn; // null: to be drawn again
};
