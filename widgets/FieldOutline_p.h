// Not installed. What a form shows of a document, line by line.
#ifndef KORMAK_WIDGETS_FIELDOUTLINE_P_H
#define KORMAK_WIDGETS_FIELDOUTLINE_P_H

#include <inspection/FieldNode.h>

#include <QHash>
#include <QString>
#include <QVector>

namespace KORMAK {

class Document;

namespace Widgets {

struct OutlineLine {
    enum class Kind : qint32 {
        Heading, ///< of an object or of a list
        Element, ///< of an object in a list
        Value, ///< a field that can be set
        Map, ///< of an area
        More, ///< a list goes on
    };

    Kind kind;
    FieldNode node;
    QString title = {};
    int count = 0; ///< of a list: how many elements there are
};

/// The lines of \a document. Of each list, as many elements as \a shown says for its path, or Few.
class FieldOutline {
public:
    static constexpr int Few = 50;

    FieldOutline(const Document &document, const QHash<QString, int> &shown);

    [[nodiscard]] const QVector<OutlineLine> &lines() const noexcept { return all; }

private:
    void addBelow(const QString &path);
    void addGroup(const FieldNode &node);
    void addList(const FieldNode &node);

    const Document &document;
    const QHash<QString, int> &shown;
    QVector<OutlineLine> all;
};

} // namespace Widgets

} // namespace KORMAK

#endif
