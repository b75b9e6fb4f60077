#pragma once
// The text the port screens print to find a printer: a few lines that name
// the port and show the accents, between two dash lines.
#include <QByteArray>

#include "print/job.h"

class MSComm;

// In wire order. The Translated writes are the lines that go through envoi_re;
// the feeds and the dash lines stand as they are.
Job portTestText(int port);

// envoi_re: the line translated in place by the accent mode, then written
// with a line feed and a carriage return behind it, in this order.
void envoi_re(MSComm& port, QByteArray& text, int mode_accent);

// Every write of the text: the Translated ones through envoi_re, the others
// as they stand. Throws Failure at the first write the port refuses.
void sendPortTestText(MSComm& port, const Job& text, int mode_accent);
