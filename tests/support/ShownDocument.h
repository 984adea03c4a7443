// Documents, and windows that show them, for the tests of what edits whole documents.
#ifndef KORMAK_SHOWNDOCUMENT_H
#define KORMAK_SHOWNDOCUMENT_H

#include <models/OpenDocument.h>
#include <tests/support/Files.h>

#include <QApplication>
#include <QByteArray>
#include <QSize>
#include <QString>
#include <QtTest>

namespace TestSupport {

/// The example called \a name, such as "jobs/antenna".
inline QByteArray example(const QString &name)
{
    return bytesOf(QString(EXAMPLES_DIR) + "/" + name + ".xml");
}

/// A job with much that is wrong with it.
inline QByteArray faultyJob()
{
    QByteArray text = example("jobs/surveillance-mc-hf");
    text.replace("Surveillance MC HF", "Surveillance MC SHF");
    text.replace("        <Author>M. Keller</Author>\n", "");
    text.replace(">1500000<", ">1,5 MHz<");
    text.replace("<Azimuth>0<", "<Azimuth>400<");
    text.replace("<ShowJDH>true<", "<ShowJDH>perhaps<");
    text.replace("2026-03-15T22:00:00,000Z", "yesterday");
    return text;
}

/// A workflow whose area has so many points, all of them good.
inline QByteArray workflowWithPoints(int count)
{
    QByteArray coordinates;
    for (int i = 0; i < count; ++i) {
        coordinates += "<Coordinate><Latitude>" + QByteArray::number(i / 10.0) + "</Latitude><Longitude>"
            + QByteArray::number(i % 7) + "</Longitude></Coordinate>\n";
    }
    return "<AutomaticWorkflow Version='1.0'><Mode>ManualMode</Mode><Area Version='1.0'><Name>n</Name>\n"
        + coordinates + "</Area></AutomaticWorkflow>";
}

/// A widget that shows a document, in a window that is active.
template <class Widget>
struct Shown {
    Shown(const QByteArray &text, const QSize &size)
    {
        document.SetText(text);
        widget.SetDocument(&document);
        widget.resize(size);
        widget.show();
        QApplication::setActiveWindow(&widget);
        QVERIFY2(QTest::qWaitForWindowExposed(&widget), "no window");
    }

    KORMAK::OpenDocument document;
    Widget widget;
};

} // namespace TestSupport

#endif
