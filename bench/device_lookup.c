/* SPDX-License-Identifier: MIT */
/* Opens a language, and then looks up each key in it, and once more without the open language. */
#include "device_program.h"
#include "morvanite_device.h"

void _start(void)
{
    morvanite_payload payload;
    morvanite_language language;
    uint32_t i;

    if (morvanite_open(&payload, data_begin, (uint32_t)(data_end - data_begin), 0) != MORVANITE_OK)
        leave(1);
    mark_begin();
    if (morvanite_find_language(&payload, 0, &language) != MORVANITE_OK)
        leave(2);
    mark_end();
    for (i = 0; i < KEYS; ++i) {
        morvanite_string string, found;
        morvanite_result result;
        uint32_t length = 0;

        mark_begin();
        result = morvanite_find_string(&language, keys[i].number, &string);
        mark_end();
        if (result != MORVANITE_OK || string.id != keys[i].number)
            leave(3);
        while ((string.units[2 * length] | string.units[2 * length + 1]) != 0)
            ++length;
        if (length != string.length)
            leave(4);
        mark_begin();
        result = morvanite_find_text(&payload, 0, keys[i].number, &found);
        mark_end();
        if (result != MORVANITE_OK || found.units != string.units || found.length != string.length)
            leave(5);
    }
    leave(0);
}
