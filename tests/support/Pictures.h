// Pictures of controls, for people to look at: written into the folder that KORMAK_PICTURES names, if any.
#ifndef KORMAK_PICTURES_H
#define KORMAK_PICTURES_H

#include <QApplication>
#include <QDir>
#include <QPalette>
#include <QPixmap>
#include <QStyle>
#include <QWidget>

#include <functional>
#include <memory>

namespace TestSupport {

/// Of a dark desktop.
inline QPalette darkPalette()
{
    QPalette palette(QColor(0x2b, 0x2d, 0x31));
    const QColor text(0xe6, 0xe9, 0xed);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::BrightText,
                            QPalette::ToolTipText})
        palette.setColor(role, text);
    palette.setColor(QPalette::Window, QColor(0x2b, 0x2d, 0x31));
    palette.setColor(QPalette::Button, QColor(0x3a, 0x3d, 0x43));
    palette.setColor(QPalette::Base, QColor(0x1d, 0x1f, 0x22));
    palette.setColor(QPalette::AlternateBase, QColor(0x25, 0x28, 0x2c));
    palette.setColor(QPalette::ToolTipBase, QColor(0x3a, 0x3d, 0x43));
    palette.setColor(QPalette::Highlight, QColor(0x3d, 0x7e, 0xc1));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x7d, 0xb7, 0xf2));
    palette.setColor(QPalette::PlaceholderText, QColor(0x9a, 0xa3, 0xad));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(0x7c, 0x84, 0x8d));
    return palette;
}

inline QPalette lightPalette()
{
    QPalette palette(QColor(0xef, 0xef, 0xef));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Highlight, QColor(0x30, 0x8c, 0xc6));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

/// Takes pictures of what \a make makes, once each with a light and a dark palette and from right to left.
/// The scale is that of the run, QT_SCALE_FACTOR. \a prepare has the widget as it is shown. \return all of
/// them could be written
inline bool takePictures(const QString &name, const QSize &size,
                         const std::function<std::unique_ptr<QWidget>()> &make,
                         const std::function<void(QWidget &)> &prepare = {})
{
    const QString folder = qEnvironmentVariable("KORMAK_PICTURES");
    const QPalette former = QApplication::palette();
    bool isWritten = true;
    for (const QString &look : {QString("light"), QString("dark"), QString("rtl")}) {
        QApplication::setPalette(look == "dark" ? darkPalette() : lightPalette());
        QApplication::setLayoutDirection(look == "rtl" ? Qt::RightToLeft : Qt::LeftToRight);
        const std::unique_ptr<QWidget> widget = make();
        widget->resize(size);
        widget->show();
        QApplication::processEvents();
        if (prepare)
            prepare(*widget);
        QApplication::processEvents();
        const QPixmap picture = widget->grab();
        const QString scale = picture.devicePixelRatio() == 1
            ? QString()
            : QString("-%1").arg(qRound(picture.devicePixelRatio() * 100));
        if (picture.isNull())
            isWritten = false;
        if (!folder.isEmpty()) {
            QDir().mkpath(folder);
            isWritten = picture.save(folder + "/" + name + "-" + look + scale + ".png") && isWritten;
        }
    }
    QApplication::setLayoutDirection(Qt::LeftToRight);
    QApplication::setPalette(former);
    return isWritten;
}

} // namespace TestSupport

#endif
