#pragma once

/// @file
/// Included before main.cpp of the program when it is built with the thread sanitizer: its events
/// are hand-overs, as those of the tests are.

#include "app/Theme.h" // declares QApplication
#include "support/QtHandOver.h"

#include <QApplication>

#define QApplication SanitizedApplication<QApplication>
