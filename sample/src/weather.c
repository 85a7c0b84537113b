/* SPDX-License-Identifier: MIT */
#include "weather.h"

#include "ResID.h"

#include <string.h>

uint32_t weather_name(condition now)
{
    static const uint32_t names[CONDITION_COUNT] = {ID_STRING_CLEAR, ID_STRING_PARTLY_CLOUDY, ID_STRING_CLOUDY,
                                                    ID_STRING_FOG,   ID_STRING_RAIN,          ID_STRING_SNOW,
                                                    ID_STRING_STORM};
    return names[now];
}

uint32_t weather_picture(condition now)
{
    static const uint32_t pictures[CONDITION_COUNT] = {ID_IMAGE_SUN,  ID_IMAGE_PARTLY, ID_IMAGE_CLOUD, ID_IMAGE_FOG,
                                                       ID_IMAGE_RAIN, ID_IMAGE_SNOW,   ID_IMAGE_STORM};
    return pictures[now];
}

morvanite_result weather_file(const morvanite_payload *payload, uint32_t id, const char *magic, morvanite_item *file)
{
    static const uint8_t prefix[8];
    const morvanite_result result = morvanite_find_item(payload, id, file);
    if (result != MORVANITE_OK)
        return result;
    if (file->size >= sizeof prefix && memcmp(file->data, prefix, sizeof prefix) == 0) {
        file->data += sizeof prefix;
        file->size -= (uint32_t)sizeof prefix;
    }
    return file->size >= 4 && memcmp(file->data, magic, 4) == 0 ? MORVANITE_OK : MORVANITE_DAMAGED;
}

static unsigned number(const uint8_t *bytes)
{
    return (unsigned)(bytes[0] | bytes[1] << 8);
}

/* The file has "WXC1", the count, then pairs of code and condition, each of them a byte. */
condition weather_from_code(const morvanite_item *codes, unsigned code)
{
    enum
    {
        HEAD = 6,
        PAIR = 2
    };
    const uint32_t count = codes->size < HEAD ? 0 : number(codes->data + 4);
    for (uint32_t i = 0; i < count && HEAD + PAIR * (i + 1) <= codes->size; ++i) {
        const uint8_t *pair = codes->data + HEAD + PAIR * i;
        if (pair[0] == code && pair[1] < CONDITION_COUNT)
            return (condition)pair[1];
    }
    return CONDITION_CLOUDY;
}

/* The file has "SUN1"; the first latitude, the step, and the numbers of latitudes and months, each of them a byte; then
 * sunrise and sunset by latitude and month. */
int weather_sun(const morvanite_item *times, int latitude, unsigned month, unsigned *rise, unsigned *set)
{
    enum
    {
        HEAD = 8,
        PAIR = 4
    };
    if (times->size < HEAD || times->data[5] == 0 || times->data[6] == 0 || month >= times->data[7])
        return -1;
    const int first = (int8_t)times->data[4];
    const int step = times->data[5];
    int row = latitude < first ? 0 : (latitude - first + step / 2) / step;
    if (row >= times->data[6])
        row = times->data[6] - 1;
    const uint32_t at = HEAD + PAIR * ((uint32_t)row * times->data[7] + month);
    if (at + PAIR > times->size)
        return -1;
    *rise = number(times->data + at);
    *set = number(times->data + at + 2);
    return *rise == 0 && *set == 0 ? -1 : 0;
}
