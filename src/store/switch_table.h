#pragma once
// The switch table switch63.wdo (file 163, one record of 1024 bytes): a head of
// 24 characters and 500 switches of 2 characters. `switchs` is the 1000
// characters held in memory for the whole run.
#include <QByteArray>
#include <QDateTime>

class RecordStore;

void ouvre_switch(RecordStore& store, const QDateTime& now);
QByteArray lit_switch(RecordStore& store, const QDateTime& now);
void ecrit_switch(RecordStore& store, const QDateTime& now, const QByteArray& switchs);
qint16 val_switch(const QByteArray& switchs, int n);
void pose_switch(QByteArray& switchs, int n, int valeur);
