#include "ListFigure.h"

#include "BenchList.h"
#include "list/C_ListInfo.h"
#include "DurationSamples.h"
#include "list/ListViewSet.h"

#include <QTemporaryDir>

#include <cstdio>

QString ListFigure::name() const
{
    return m_job == Job::Open ? QStringLiteral("open_list_ms") : QStringLiteral("save_list_ms");
}

std::optional<double> ListFigure::measure()
{
    const QByteArray figure = name().toLatin1();
    QTemporaryDir dir;
    if (!BenchList::write(dir, qint64(2) * 1024 * 1024, figure.constData()))
        return std::nullopt;

    ListViewSet views;
    C_ListInfo list;
    if (views.openList(list, BenchList::listPath(dir)) != C_ListInfo::Success
        || views.lsvTextures.count() != BenchList::ObjectTextures) {
        std::fprintf(stderr, "%s: the list does not open whole\n", figure.constData());
        return std::nullopt;
    }

    DurationSamples samples;
    for (int i = 0; i < Repetitions; ++i) {
        const qint16 status = samples.time([&] {
            return m_job == Job::Open ? views.openList(list, BenchList::listPath(dir)) : list.PutAllListContents();
        });
        if (status != C_ListInfo::Success) {
            std::fprintf(stderr, "%s: the list could not be %s\n", figure.constData(),
                         m_job == Job::Open ? "read" : "written");
            return std::nullopt;
        }
    }
    return samples.median() / 1e6;
}
