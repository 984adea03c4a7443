// Tells what is wrong with a document, sets a field of it and tells what writing it would lose.

#include <inspection/Document.h>
#include <objectbase/TesselException.h>

#include <QFile>

#include <cstdlib>
#include <iostream>

namespace {

void print(const QVector<KORMAK::Finding> &findings)
{
    for (const KORMAK::Finding &finding : findings) {
        const bool isError = finding.GetSeverity() == KORMAK::Finding::Severity::Error;
        std::cout << finding.GetLine() << ':' << finding.GetColumn() << ": "
                  << (isError ? "error: " : "warning: ") << finding.GetPath().toStdString() << ": "
                  << finding.GetMessage().toStdString() << '\n';
    }
}

} // namespace

int main(int argc, char **argv)
{
    QFile file(argc == 4 ? QString::fromLocal8Bit(argv[1]) : QString());
    if (argc != 4 || !file.open(QIODevice::ReadOnly)) {
        std::cerr << "Usage: inspection FILE FIELD TEXT, as in job.xml JobHeader.Author Keller\n";
        return EXIT_FAILURE;
    }
    //! [inspect and change]
    KORMAK::Document document(file.readAll());
    std::cout << document.GetState().toStdString() << '\n';
    print(document.GetFindings());
    try {
        const KORMAK::Document before = document;
        document.SetField(QString::fromLocal8Bit(argv[2]), QString::fromLocal8Bit(argv[3]));
        for (const KORMAK::Difference &difference : KORMAK::Document::Compare(before, document))
            std::cout << difference.GetText().toStdString() << '\n';
        std::cout << document.GetState().toStdString() << '\n';
        print(document.GetLosses());
        return EXIT_SUCCESS;
    } catch (const TESSEL::TesselException &error) { // says what is allowed
        std::cerr << error.what() << '\n';
        return EXIT_FAILURE;
    }
    //! [inspect and change]
}
