// What people wait for until they see the parameters of a receiver of 10,000, beside reading it for
// inspection.

#include "BesideReading.h"
#include "Documents.h"
#include "Names.h"

#include <models/OpenDocument.h>
#include <widgets/ReceiverPanel.h>

#include <QApplication>
#include <QPixmap>

#include <vector>

namespace {

using namespace KORMAK;

constexpr QSize Size(900, 700);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QByteArray text = Documents::receiver(Names::Large).toUtf8();
    OpenDocument document;
    document.SetText(text);
    ReceiverPanel open(document);
    open.resize(Size);
    open.grab();
    const std::vector<NamedOperation> all{{QStringLiteral("panel, made and drawn"),
                                           [&document] {
                                               ReceiverPanel panel(document);
                                               panel.resize(Size);
                                               panel.grab();
                                           }},
                                          {QStringLiteral("search, and drawn"),
                                           [&open] {
                                               open.SetSearch(QStringLiteral("gain"));
                                               open.grab();
                                               open.SetSearch({});
                                               open.grab();
                                           }},
                                          {QStringLiteral("drawn again"), [&open] { open.grab(); }}};

    printBesideReading(QStringLiteral("A panel of a receiver of 10,000 parameters, beside Document(text)"),
                       text, all);
}
