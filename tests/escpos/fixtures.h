#pragma once
// The bytes the tool really puts on the wire, composed by its own code and
// sent through its own channels into a recorder: the standard and kitchen
// test tickets, the hidden test jobs, a cut and the drawer pulses.
#include <QByteArray>
#include <QString>
#include <vector>

struct Fixture {
    QString name;
    QByteArray bytes;
    bool accents = false;  // a ticket with the accent line: the advice matters
};

std::vector<Fixture> wireFixtures();
