// Writes what is installed beside the tool and made of its own texts: kormak-texts FOLDER DATA_FOLDER
#include <tools/Completion.h>
#include <tools/Manual.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <cstdio>

namespace {

bool write(const QString &path, const QString &text)
{
    QFile file(path);
    const QByteArray bytes = text.toUtf8();
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush())
        return true;
    std::fprintf(stderr, "kormak-texts: %s: %s\n", qPrintable(path), qPrintable(file.errorString()));
    return false;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QDir folder(arguments.value(1));
    const bool isWritten = folder.mkpath(QStringLiteral("completions"))
        && write(folder.filePath(QStringLiteral("kormak.1")),
                 manualPage(QStringLiteral(KORMAK_VERSION), arguments.value(2)))
        && write(folder.filePath(QStringLiteral("completions/kormak")), Completion::forBash())
        && write(folder.filePath(QStringLiteral("completions/_kormak")), Completion::forZsh());
    return isWritten ? 0 : 1;
}
