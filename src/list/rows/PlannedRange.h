#pragma once

#include "list/rows/ListRows.h"

#include <QList>

// The textures of a range being built on the animation page, in the order
// it will play them: one row each, its texture number, then its place in
// the order from 1 in four digits ("0001"). Rows have no keys: a range may
// show a texture twice.
class PlannedRange : public ListRows
{
    Q_OBJECT

public:
    explicit PlannedRange(QObject* parent = nullptr);

    const QList<quint16>& textures() const { return m_textures; }

    void append(quint16 texture);
    void removeAt(int index);
    // The two rows trade places; the chosen row goes with its texture.
    void swap(int first, int second);
    void clear();

    int count() const override { return int(m_textures.size()); }
    QString key(int index) const override;
    QString cellText(int index, int column) const override;
    qint64 subItemNumber(int index, int subItem) const override;
    int findKey(const QString& key) const override;

private:
    QList<quint16> m_textures;
};
