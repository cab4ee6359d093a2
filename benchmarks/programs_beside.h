// SPDX-License-Identifier: MIT

#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

/// A program or library in the folder of this one.
QString file_beside(const QString& name);

/// Runs one of the programs of benchmarks/programs to its end and reads what it measured.
/// @param ports device names of the only serial ports that it sees.
/// @return the numbers it printed, one "name number" per line.
/// @throws Measurement_Failed if it does not end successfully in time.
QMap<QString, double> run_program(const QString& name, const QStringList& arguments,
                                  const QStringList& ports);
