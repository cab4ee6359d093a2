// SPDX-License-Identifier: MIT

#pragma once

#include "benchmarks/statistics.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

/// One line of the table.
struct Row {
    enum class Verdict { information, reached, missed };

    QString what;
    QString against;
    QString figure;
    QString aim; ///< empty for information only
    Verdict verdict = Verdict::information;
};

using Rows = QList<Row>;

/// A row whose figure must stay within a limit.
Row row_with_limit(const QString& what, const QString& against, const QString& figure,
                   double measured, double limit, const QString& aim);

/// The ratio of two series that were measured alternately; `aim` is the highest good value, if any.
Row ratio_row(const QString& what, const QString& against, const Samples& a, const Samples& b,
              const QString& unit, std::optional<double> aim);

/// A number with a suitable number of decimals.
QString readable(double number);

/// Rows as text, to pass them between processes.
QByteArray to_lines(const Rows& rows);
/// The rows among the lines of a text; other lines are ignored.
Rows rows_in(const QByteArray& text);

/// The whole table, its columns aligned.
QString table_of(const Rows& rows);
