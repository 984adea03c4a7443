#ifndef KORMAK_ENUMHANDLER_H
#define KORMAK_ENUMHANDLER_H

#include <kormak/kormak_export.h>
#include <kormak/TypeHandler.h>

#include <QSharedDataPointer>
#include <QString>
#include <QVector>

namespace KORMAK {

/// Holds a choice from a list of entries: the list, the entry that is the default and the entry that is
/// selected. The latter two are copies; they need not stand in the list, and Reset() empties the list alone.
class KORMAK_EXPORT EnumHandler final : public TypeHandler {
public:
    /// An entry. The fields are called as the attributes of its XML element.
    class KORMAK_EXPORT EnumValue {
    public:
        EnumValue();
        EnumValue(const EnumValue &other);
        EnumValue &operator=(const EnumValue &other);
        ~EnumValue();

        /// Default is compared as IsDefault().
        [[nodiscard]] bool operator==(const EnumValue &other) const;
        [[nodiscard]] bool operator!=(const EnumValue &other) const { return !(*this == other); }

        /// True exactly when Default is the text "true".
        [[nodiscard]] bool IsDefault() const;

        qint32 Key = -1; ///< need not be unique
        QString Name; ///< what GetEnumValue() looks for; need not be unique
        QString Identifier; ///< optional
        double Value = 0.0; ///< the number that the entry stands for
        QString Default; ///< "true" for the default entry of a list, otherwise "false" or empty
    };

    EnumHandler();
    EnumHandler(const EnumHandler &other);
    EnumHandler(EnumHandler &&other) noexcept;
    EnumHandler &operator=(const EnumHandler &other);
    EnumHandler &operator=(EnumHandler &&other) noexcept;
    ~EnumHandler();

    /// The entries in the order of the document. Setting or appending them checks nothing and leaves the
    /// default and the selected entry as they are.
    [[nodiscard]] QVector<EnumValue> &GetEnumList() noexcept { return enumList; }
    [[nodiscard]] const QVector<EnumValue> &GetEnumList() const noexcept { return enumList; }
    void SetEnumList(QVector<EnumValue> &list);
    void AppendEnumValue(const EnumValue &entry);

    /// The entry that is the default, and that a look-up gives when it finds none. The reference to a const
    /// entry is valid until the handler changes.
    [[nodiscard]] EnumValue &GetDefaultValue();
    [[nodiscard]] const EnumValue &GetDefaultValue() const;
    void SetDefaultValue(const EnumValue &entry);

    /// The entry that is selected; the reference is as that to the default.
    [[nodiscard]] EnumValue &GetSelectedEnumValue();
    [[nodiscard]] const EnumValue &GetSelectedEnumValue() const;
    void SetSelectedEnumValue(const EnumValue &entry);

    /// \name Look-up
    /// The first entry with that name (case-sensitive), key or value (exactly), or else the default entry.
    /// The reference is valid until the handler changes.
    /// @{
    [[nodiscard]] const EnumValue &GetEnumValue(const QString &name);
    [[nodiscard]] const EnumValue &GetEnumValue(int key) const;
    [[nodiscard]] const EnumValue &GetEnumValue(double value) const;
    /// @}

    /// The list has entries.
    [[nodiscard]] bool HasData() const override;
    /// As HasData().
    [[nodiscard]] bool AnyData() const override;
    void Reset() override;

    /// Compares lists in their order, default and selected entries, and names.
    [[nodiscard]] bool operator==(const EnumHandler &other) const;
    [[nodiscard]] bool operator!=(const EnumHandler &other) const { return !(*this == other); }

private:
    struct Choice;
    [[nodiscard]] const Choice &chosen() const;
    [[nodiscard]] Choice &editableChoice();
    [[nodiscard]] Choice &lentChoice();

    QVector<EnumValue> enumList;
    QSharedDataPointer<Choice> choice; // null: both entries are as they start
    bool isChoiceLent = false; // someone may hold a reference through which it changes: no sharing any more
};

} // namespace KORMAK

QT_BEGIN_NAMESPACE
Q_DECLARE_TYPEINFO(KORMAK::EnumHandler::EnumValue, Q_MOVABLE_TYPE);
QT_END_NAMESPACE

#endif
