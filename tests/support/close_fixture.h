// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/modal_robot.h"

#include <QTest>

#include <memory>

/// Closes the window of a test. The test fails if an expected modal widget has not come, or if a
/// window is left.
template <class Fixture>
void close_fixture(std::unique_ptr<Fixture>& fixture) {
    const bool robot_done = fixture->robot.done();
    const QByteArray why = fixture->robot.why();
    fixture.reset();
    QVERIFY2(robot_done, why.constData());
    QCOMPARE(windows_left(), QStringList());
}
