// Where documents go that a command has written anew: to standard output, a file, their own place, or
// nowhere, when only what would change is asked for.
#ifndef KORMAK_TOOLS_REWRITETARGET_H
#define KORMAK_TOOLS_REWRITETARGET_H

#include <tools/Command.h>
#include <tools/DocumentFile.h>

#include <QByteArray>
#include <QCommandLineOption>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

QT_BEGIN_NAMESPACE
class QCommandLineParser;
QT_END_NAMESPACE

class RewriteTarget {
public:
    enum class Mode {
        Output, ///< of one document
        InPlace,
        Check, ///< names the files that would change
        DryRun, ///< shows what would change in them
    };

    /// -o and --in-place, and --check or --dry-run, as \a preview says.
    [[nodiscard]] static QList<QCommandLineOption> options(Mode preview);

    /// What a call asks for that is about the files \a sources. \throws UsageError
    RewriteTarget(const QCommandLineParser &parser, const QStringList &sources, Mode preview);

    [[nodiscard]] Mode mode() const noexcept { return wanted; }

    /// Writes \a bytes in the place of those of \a original, or to the output that is asked for. A file that
    /// holds them already is left alone. \a source is the path of the file.
    [[nodiscard]] ExitStatus write(const QByteArray &bytes, const QString &source,
                                   const SourceText &original);

    /// Does \a work on each of the \a sources, as onFile() does. Names the files that have changed, or would,
    /// in the end, so that no file is left out when whoever reads this has seen enough.
    [[nodiscard]] ExitStatus onEach(const QStringList &sources,
                                    const std::function<ExitStatus(const QString &source)> &work) const;

private:
    Mode wanted;
    QString output; ///< of the mode Output
    QStringList changed;
};

#endif
