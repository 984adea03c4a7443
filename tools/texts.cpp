// Writes what is installed beside the tool and made of its own texts: kormak-texts FOLDER DATA_FOLDER
// TEMPLATES
#include <tools/Completion.h>
#include <tools/Manual.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <cstdio>

namespace {

bool complain(const QFile &file)
{
    std::fprintf(stderr, "kormak-texts: %s: %s\n", qPrintable(file.fileName()),
                 qPrintable(file.errorString()));
    return false;
}

bool read(const QString &path, QString &text)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return complain(file);
    text = QString::fromUtf8(file.readAll());
    return file.error() == QFileDevice::NoError || complain(file);
}

bool write(const QString &path, const QString &text)
{
    QFile file(path);
    const QByteArray bytes = text.toUtf8();
    return (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush())
        || complain(file);
}

bool writeCompletion(const QString &path, const QDir &templates, const QString &name)
{
    QString script;
    QString fieldFunctions;
    return read(templates.filePath(name), script)
        && read(templates.filePath(QStringLiteral("fields.sh.in")), fieldFunctions)
        && write(path, Completion::filledIn(script, fieldFunctions));
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QDir folder(arguments.value(1));
    const QDir templates(arguments.value(3));
    const bool isWritten = folder.mkpath(QStringLiteral("completions"))
        && write(folder.filePath(QStringLiteral("kormak.1")),
                 manualPage(QStringLiteral(KORMAK_VERSION), arguments.value(2)))
        && writeCompletion(folder.filePath(QStringLiteral("completions/kormak")), templates,
                           QStringLiteral("kormak.bash.in"))
        && writeCompletion(folder.filePath(QStringLiteral("completions/_kormak")), templates,
                           QStringLiteral("kormak.zsh.in"));
    return isWritten ? 0 : 1;
}
