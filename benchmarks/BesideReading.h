// What programs wait for that show a document, beside reading it for inspection.
#ifndef BENCHMARKS_BESIDEREADING_H
#define BENCHMARKS_BESIDEREADING_H

#include <QByteArray>
#include <QString>

#include <functional>
#include <vector>

struct NamedOperation {
    QString name;
    std::function<void()> operation;
};

/// Prints a table of the operations: medians of their processor time and, of several rounds, of its ratio to
/// that of Document(text).
void printBesideReading(const QString &title, const QByteArray &text,
                        const std::vector<NamedOperation> &operations);

#endif
