// SPDX-License-Identifier: MIT

#include "tests/support/network_test.h"

#include "tests/support/close_fixture.h"

void Network_Test::initTestCase_data() {
    QTest::addColumn<Switch_Model>("model");
    QTest::newRow("Plus") << Switch_Model::plus;
    QTest::newRow("Pro") << Switch_Model::pro;
}

void Network_Test::init() {
    QFETCH_GLOBAL(const Switch_Model, model);
    at = std::make_unique<Network_Fixture>(model);
}

void Network_Test::cleanup() {
    close_fixture(at);
    QCOMPARE(Network_Fixture::socket_count(), 0);
}
