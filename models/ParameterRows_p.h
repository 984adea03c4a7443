// The parameters of a document in the order of their names, each at hand by its place.
#ifndef KORMAK_MODELS_PARAMETERROWS_P_H
#define KORMAK_MODELS_PARAMETERROWS_P_H

#include <inspection/Document.h>
#include <kormak/Parameter.h>

#include <QString>
#include <QStringList>

#include <vector>

namespace KORMAK {

class ParameterRows {
public:
    struct Row {
        QString key; ///< in the receiver
        const Parameter *parameter;
    };

    ParameterRows() = default;
    /// Of a receiver, or of a document that is one parameter.
    explicit ParameterRows(Document ofDocument);

    [[nodiscard]] int size() const noexcept { return static_cast<int>(rows.size()); }
    [[nodiscard]] const Row &at(int row) const { return rows[static_cast<std::size_t>(row)]; }
    /// -1: there is none.
    [[nodiscard]] int find(const QString &key) const;
    /// The parameter called \a key; null: there is none.
    [[nodiscard]] const Parameter *parameter(const QString &key) const;
    /// The path of the parameter in the document; empty when it is the document.
    [[nodiscard]] QString path(int row) const;
    /// The row that \a path is in; -1: in none.
    [[nodiscard]] int rowOf(const QString &path) const;

    std::vector<Row> rows;

private:
    Document document; ///< whose object the parameters are in
    bool isReceiver = false;
};

} // namespace KORMAK

#endif
