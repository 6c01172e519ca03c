#pragma once
// KelvoQtComm: skin, language and picture services, widget helpers and the desktop
// screen helper that the controls are written against.

#include "qtcomm/image_path.h"
#include "qtcomm/language_helper.h"
#include "qtcomm/qt_desktop_screen_helper.h"
#include "qtcomm/qt_kelvo_helper.h"
#include "qtcomm/register_handy.h"
#include "qtcomm/skin_helper.h"
