/* SPDX-License-Identifier: MIT */
#ifndef START_SCREEN_H
#define START_SCREEN_H

#include "morvanite_device.h"

/* Walks the layout of the start screen and prints its components: classes, names, places, texts in that language, and
 * images by their size. Returns 0, or -1 after printing a message. */
int start_screen_show(const morvanite_payload *payload, const morvanite_language *language);

#endif
