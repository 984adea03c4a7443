// Not installed. Writes a whole document, declaration included, and tells when a text in it cannot be
// represented.
#ifndef TESSEL_DOCUMENTWRITER_P_H
#define TESSEL_DOCUMENTWRITER_P_H

#include <objectbase/objectbase_export.h>

#include <QIODevice>
#include <QString>
#include <QXmlStreamWriter>

#include <optional>
#include <string>

namespace TESSEL {

class OBJECTBASE_EXPORT DocumentWriter {
public:
    DocumentWriter();

    [[nodiscard]] QXmlStreamWriter &xml() noexcept { return writer; }

    /// Ends the document. Nothing when a text holds what XML cannot carry.
    [[nodiscard]] std::optional<QString> finish();

private:
    /// Where early Qt 6 writes documents to, in UTF-8: for a QString it makes a QString of every bracket, an
    /// eighth of all writing. There its writer finds lone surrogates itself.
    class Utf8Sink final : public QIODevice {
    public:
        Utf8Sink() { open(WriteOnly | Unbuffered); }

        [[nodiscard]] bool isSequential() const override { return true; }

        std::string bytes;

    protected:
        qint64 readData(char * /*data*/, qint64 /*size*/) override { return -1; }
        qint64 writeData(const char *data, qint64 size) override
        {
            bytes.append(data, static_cast<std::size_t>(size));
            return size;
        }
    };

    QString text;
    std::optional<Utf8Sink> sink; ///< null: it is written to the text
    QXmlStreamWriter writer;
};

} // namespace TESSEL

#endif
