// What of a document an edit is about. Of a receiver with ten thousand parameters only those that are changed
// are gone through path by path.
#ifndef KORMAK_INSPECTION_EDITSCOPE_P_H
#define KORMAK_INSPECTION_EDITSCOPE_P_H

#include <QSet>
#include <QString>
#include <QStringList>

namespace KORMAK::Inspection {

class EditScope {
public:
    /// The whole document.
    EditScope() = default;
    /// The fields at \a paths, and whatever else belongs to an object that stands in a map of the document
    /// and that one of them leads through; of other objects everything.
    explicit EditScope(const QStringList &paths);

    /// Of an object in a map of the document: "Parameter[Level]".
    [[nodiscard]] bool holds(const QString &step) const { return isWhole || steps.contains(step); }

private:
    bool isWhole = true;
    QSet<QString> steps;
};

} // namespace KORMAK::Inspection

#endif
