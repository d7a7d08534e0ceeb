#pragma once

#include "image-module/ImageModuleExport.h"

#include <QtCore/QString>
#include <QtGui/QImage>
#include <QtGui/QPixmap>
#include <QtWidgets/QWidget>

/// Shows a picture from the web, sharp at every device pixel ratio and in its own proportions. Not for the
/// keyboard or the mouse and without a name of its own: the text beside it says what it means. GUI thread.
class TL_IMAGE_MODULE_EXPORT ImageLabel final : public QWidget
{
    Q_OBJECT

public:
    explicit ImageLabel(QWidget* parent = nullptr);
    ~ImageLabel() override;

    /// The box in the middle of the label into which the picture is fitted, and the radii of the picture's
    /// own corners [px]. Until it is called the box is the label, and the corners are square.
    void SetPixmapParam(int width, int height, int xRadius, int yRadius);

    /// Cuts the box to rounded corners of this radius [px] on top of that, so that the faces of all apps
    /// have one shape whatever their pictures look like; 0 takes the mask away.
    void SetPluginMask(int radius);

    /// Fetches the picture at the address through `VXImageCache` and shows it. While it is on its way, and
    /// when it cannot be had, `defaultImage` is shown, a resource or a file. When that is empty, there is
    /// nothing at first, and the program's picture `:/images/default.png` if it cannot be had. Of several
    /// calls the last one counts, and the same address again keeps what is shown. An empty address shows
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
    QPixmap m_drawn; // null: to be drawn anew
};
