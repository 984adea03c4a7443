// Not installed. The labels, units and names of entries of a receiver recur from channel to channel.
#ifndef KORMAK_RECURRINGTEXTS_P_H
#define KORMAK_RECURRINGTEXTS_P_H

#include <objectbase/Text_p.h>

#include <QHash>
#include <QString>
#include <QStringView>
#include <QVector>

namespace KORMAK {

/// While one lives, equal texts that its thread reads with read() share their characters, except long ones
/// and the first few. Of the texts that fall on one place the latest alone is kept.
class RecurringTexts {
public:
    RecurringTexts() { current = this; }
    ~RecurringTexts() { current = outer; }
    RecurringTexts(const RecurringTexts &) = delete;
    RecurringTexts &operator=(const RecurringTexts &) = delete;

    static void read(QStringView text, QString &value)
    {
        constexpr int Longest = 64;
        if (current && !text.isEmpty() && text.size() <= Longest)
            current->share(text, value);
        else
            TESSEL::fromText(text, value);
    }

private:
    void share(QStringView text, QString &value)
    {
        constexpr int FewTexts = 16; // so that a small receiver does without places
        constexpr int Places = 256;
        if (++count <= FewTexts) {
            TESSEL::fromText(text, value);
            return;
        }
        if (latest.isEmpty())
            latest.resize(Places);
        QString &place = latest[static_cast<int>(qHash(text) % Places)];
        TESSEL::fromText(text, place);
        value = place;
    }

    static inline thread_local RecurringTexts *current = nullptr;

    RecurringTexts *outer = current;
    QVector<QString> latest;
    qint64 count = 0;
};

} // namespace KORMAK

#endif
