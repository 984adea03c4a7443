#ifndef TESSEL_TESSELEXCEPTION_H
#define TESSEL_TESSELEXCEPTION_H

#include <objectbase/objectbase_export.h>

#include <QByteArray>
#include <QString>

#include <exception>

namespace TESSEL {

/// An error with a message for people. Base of all exceptions that this library throws.
///
/// \snippet docs/ObjectbaseSnippetsTest.cpp TesselBaseException
class OBJECTBASE_EXPORT TesselBaseException : public std::exception {
public:
    /// \a text is the message, complete.
    explicit TesselBaseException(const QString &text);
    TesselBaseException(const TesselBaseException &) = default;
    TesselBaseException &operator=(const TesselBaseException &) = default;
    ~TesselBaseException() override;

    /// The message as it was given.
    [[nodiscard]] const QString &GetErrorMessage() const noexcept { return message; }

    /// The message in UTF-8; valid as long as the exception.
    [[nodiscard]] const char *what() const noexcept override;

private:
    QString message;
    QByteArray utf8Message;
};

/// Thrown by checks, validating setters, reading and loading. The message says what is missing, what is
/// invalid or what was not understood, and in which object.
///
/// \snippet docs/ObjectbaseSnippetsTest.cpp TesselException
class OBJECTBASE_EXPORT TesselException : public TesselBaseException {
public:
    /// \a text is the message, complete.
    explicit TesselException(const QString &text);
    TesselException(const TesselException &) = default;
    TesselException &operator=(const TesselException &) = default;
    ~TesselException() override;
};

} // namespace TESSEL

#endif
