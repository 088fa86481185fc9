#include "mainwindow/configurazione_record.h"
