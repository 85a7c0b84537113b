/* What the clock knows about the weather: conditions, and the two tables in its resources. */
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

/* A file among the items, without the 8 zero bytes that a pack with converted images puts before it. The size may hold
 * up to 3 zero bytes behind the file. MORVANITE_DAMAGED also when it doesn't begin with the four letters `magic`. */
morvanite_result weather_file(const morvanite_payload *payload, uint32_t id, const char *magic, morvanite_item *file);

/* The condition that a report's code stands for, by the code table; cloudy for a code that isn't in it. */
condition weather_from_code(const morvanite_item *codes, unsigned code);

/* Minutes of the day at which the sun rises and sets in a month, from 0, at the table's latitude nearest to the one
 * given. 0, or -1 where the table has no such time. */
int weather_sun(const morvanite_item *times, int latitude, unsigned month, unsigned *rise, unsigned *set);

#endif
