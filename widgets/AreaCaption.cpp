#include "widgets/AreaCaption_p.h"

#include <inspection/report/AreaDrawing_p.h>
#include <widgets/AreaEditor_p.h>
#include <widgets/AreaMapPainter_p.h>

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>

namespace KORMAK::Widgets {

using Inspection::AreaOutline;

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("KORMAK::AreaView", text);
}

QString selectedPointText(const AreaEditor &editor)
{
    const auto degrees = [](double value) {
        constexpr QChar Degree(0xB0);
        return QString::number(value, 'g', QLocale::FloatingPointShortest) + Degree;
    };
    const TESSEL::Coordinate place = editor.coordinates().at(editor.selected());
    const QString text =
        tr("Point %1 of %2: latitude %3, longitude %4")
            .arg(QString::number(editor.selected() + 1), QString::number(editor.points().count()),
                 degrees(place.GetLatitude()), degrees(place.GetLongitude()));
    return editor.isMoving() ? text + tr(" (moving)") : text;
}

} // namespace

QString areaCaption(const AreaEditor &editor, const QLocale &locale)
{
    if (!editor.document())
        return {};
    if (!editor.points().isKnown())
        return tr("The document has no area.");
    if (editor.points().count() == 0)
        return tr("The area has no points yet.") + QLatin1Char('\n')
            + tr("A double click or Insert adds one.");
    const AreaOutline outline(editor.coordinates());
    QStringList lines;
    if (editor.selected() >= 0)
        lines += selectedPointText(editor);
    else if (outline.error().isEmpty())
        lines += extentText(outline) + QLatin1Char('.');
    lines += outline.error().isEmpty() ? remarkOn(outline) : outline.error() + QLatin1Char('.');
    lines.removeAll(QString());
    return localised(lines.join(QLatin1Char('\n')), locale);
}

} // namespace KORMAK::Widgets
