// A table as it is written: for people, as CSV or as JSON.
#ifndef KORMAK_TOOLS_TABLEWRITER_H
#define KORMAK_TOOLS_TABLEWRITER_H

#include <tools/OutputFormat.h>
#include <tools/TableFields.h>

#include <QByteArray>
#include <QStringList>

#include <vector>

namespace Table {

using Row = std::vector<Cell>; ///< a cell for each column

/// Writes the rows one after the other; those for people some hundred at a time, in columns that are as wide
/// as the widest so far.
class Writer {
public:
    explicit Writer(OutputFormat outputFormat) : format(outputFormat) { }

    /// Begins with the \a columns. For people and in JSON, other columns can follow.
    void begin(const std::vector<FieldName> &columns);
    void add(const Row &row);
    void end();

private:
    void writeBlock();
    [[nodiscard]] QByteArray csv(const QStringList &cells) const;
    [[nodiscard]] QByteArray json(const Row &row) const;

    const OutputFormat format;
    std::vector<FieldName> fields;
    QStringList names;
    bool hasBegun = false;
    std::vector<QStringList> block; ///< of lines for people that are still to be written
    std::vector<int> widths;
};

} // namespace Table

#endif
