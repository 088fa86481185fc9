#include "mainwindow/voce.h"
