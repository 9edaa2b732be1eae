// Local dates as milliseconds: the short cut agrees with the plain way.
#include "charts/epoch_times.h"

#include <QTimeZone>
#include <ctime>
#include <gtest/gtest.h>

namespace {

// Another zone while this lives.
class Zone {
public:
    explicit Zone(const char* name) : before_(qgetenv("TZ")) { set(name); }
    ~Zone() { set(before_); }
    Zone(const Zone&) = delete;
    Zone& operator=(const Zone&) = delete;

private:
    static void set(const QByteArray& name)
    {
        qputenv("TZ", name);
        tzset();
    }
    QByteArray before_;
};

// Each moment shows its date on the clock. Of an hour that a clock shows twice
// the system itself gives now the one, now the other.
void expectPlain(const QList<QDateTime>& dates)
{
    const QVector<double> times = epochTimes(dates);
    ASSERT_EQ(times.size(), dates.size());
    for (int i = 0; i < dates.size(); ++i) {
        const int offset = dates[i].timeSpec() == Qt::OffsetFromUTC ? dates[i].offsetFromUtc() : 0;
        const QDateTime shown = QDateTime::fromMSecsSinceEpoch(qint64(times[i]), dates[i].timeSpec(), offset);
        ASSERT_EQ(shown.date(), dates[i].date()) << dates[i].toString(Qt::ISODate);
        ASSERT_EQ(shown.time(), dates[i].time()) << dates[i].toString(Qt::ISODate);
    }
}

} // namespace

TEST(EpochTimes, AgreeInEveryZoneAndSpacing)
{
    for (const char* zone : {"UTC", "Europe/Moscow", "Europe/Berlin", "Australia/Lord_Howe", "America/St_Johns"}) {
        const Zone there(zone);
        for (int hours : {1, 5, 24, 100, 1000}) {
            QList<QDateTime> dates;
            QDateTime date(QDate(1968, 1, 1), QTime(0, 30));
            for (int i = 0; i < 9000; ++i) {
                dates.append(date);
                date = date.addSecs(hours * 3600);
            }
            expectPlain(dates);
        }
    }
}

TEST(EpochTimes, NoneOneAndMixedKinds)
{
    expectPlain({});
    expectPlain({QDateTime(QDate(2020, 1, 1), QTime(1, 0))});
    const Zone there("Europe/Berlin");
    expectPlain({QDateTime(QDate(2020, 6, 1), QTime(1, 0)), QDateTime(QDate(2020, 6, 1), QTime(2, 0), Qt::UTC),
                 QDateTime(QDate(2020, 6, 2), QTime(2, 0))});
    expectPlain({QDateTime(QDate(2020, 6, 1), QTime(1, 0), Qt::OffsetFromUTC, 3600),
                 QDateTime(QDate(2020, 6, 1), QTime(2, 0), Qt::OffsetFromUTC, 7200),
                 QDateTime(QDate(2020, 6, 1), QTime(8, 0), Qt::OffsetFromUTC, 3600)});
}
