#pragma once
// Opening and first initialisation of the 20-character record files.
#include <QDate>

class RecordStore;

// The date as the marker stores it: month-day-year with hyphens, 10 characters.
QByteArray markerDate(const QDate& today);

// Closes 142, opens WFICH142.WDO; without its marker, writes "#INIT#" and the
// date to record 1 and blanks to records 2 to 201.
void ouvre_fich142(RecordStore& store, const QDate& today);

// Closes 120, opens w_perifx.wdo; without its marker, writes the marker and
// 1999 blank records, then copies records 1 to 16 and 700 to 712 from file 20.
// A read from file 20 while it is not open throws, leaving the file with its
// marker and blank records: the start-up of a network till relies on that.
void ouvre_perifx(RecordStore& store, const QDate& today);

// Closes 147, opens Souvprt<port>.wdo; a file shorter than one record gets 200
// blank records, "9600,n,8,1" in record 1 and "Imp Série : <port>" in record 2.
void ouvre_souvprt(RecordStore& store, int port);

// The kitchen printer's file on number 20: closes 20, opens w_imprc5.wdo;
// without its marker, writes "#INIT#" alone and blanks to records 2 to 1001.
void ouvre_imprc5(RecordStore& store);

// True when the first 6 characters of the record are "#INIT#".
bool hasMarker(QByteArrayView record);
