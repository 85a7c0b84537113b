/* SPDX-License-Identifier: MIT */
/* The weather data of the clock: conditions, and the two tables in its resources. */
#ifndef WEATHERCLOCK_WEATHER_H
#define WEATHERCLOCK_WEATHER_H

#include "morvanite_device.h"

typedef enum condition
{
    CONDITION_CLEAR,
    CONDITION_PARTLY_CLOUDY,
    CONDITION_CLOUDY,
    CONDITION_FOG,
    CONDITION_RAIN,
    CONDITION_SNOW,
    CONDITION_STORM,
    CONDITION_COUNT
} condition;

/* IDs of the name and the picture of a condition. */
uint32_t weather_name(condition now);
uint32_t weather_picture(condition now);

/* Finds a file among the items, without the 8 zero bytes that a pack with converted images puts before it. The size may
 * include up to 3 zero bytes after the file. Returns MORVANITE_DAMAGED also if the file doesn't begin with the four
 * letters `magic`. */
morvanite_result weather_file(const morvanite_payload *payload, uint32_t id, const char *magic, morvanite_item *file);

/* Returns the condition for a report's code, from the code table; cloudy for a code that isn't in it. */
condition weather_from_code(const morvanite_item *codes, unsigned code);

/* Gets the minutes of the day at which the sun rises and sets in a month, counted from 0, at the table's latitude that
 * is nearest to `latitude`. Returns 0, or -1 if the table has no such time. */
int weather_sun(const morvanite_item *times, int latitude, unsigned month, unsigned *rise, unsigned *set);

#endif
