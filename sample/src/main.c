/* SPDX-License-Identifier: MIT */
/* The weather clock: a small application for a device whose resources Morvanite packs.
 *
 * It finds the section with its resources in its own file and shows what is in it. The first argument is the language
 * of its screen: en, ru, zh, hi, ko or ar. Exit status: 0; 1 if the program was not packed or its resources are
 * damaged; 2 for an unknown language. */

#include "ResID.h"
#include "morvanite_device.h"
#include "morvanite_elf.h"
#include "own_file.h"
#include "picture.h"
#include "start_screen.h"
#include "text.h"
#include "weather.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

enum
{
    LANGUAGES = 6,
    TEXT_ROOM = 160
};

/* The numbers are those of the language table; they never change. */
static const struct
{
    const char *code;
    const char *name;
    uint32_t number;
} LANGUAGE[LANGUAGES] = {
    {"en", "English", 0}, {"ru", "Russian", 20}, {"zh", "Chinese", 2},
    {"hi", "Hindi", 47},  {"ko", "Korean", 5},   {"ar", "Arabic", 44},
};

#define NAMED(id)                                                                                                      \
    {                                                                                                                  \
#id, id                                                                                                        \
    }

typedef struct named
{
    const char *name;
    uint32_t id;
} named;

static const named STRINGS[] = {
    NAMED(ID_STRING_APP_TITLE),     NAMED(ID_STRING_TODAY),  NAMED(ID_STRING_TOMORROW), NAMED(ID_STRING_CLEAR),
    NAMED(ID_STRING_PARTLY_CLOUDY), NAMED(ID_STRING_RAIN),   NAMED(ID_STRING_SNOW),     NAMED(ID_STRING_STORM),
    NAMED(ID_STRING_SUNRISE),       NAMED(ID_STRING_SUNSET), NAMED(ID_STRING_ALARM),    NAMED(ID_STRING_STORM_PUSH),
};

static const named IMAGES[] = {
    NAMED(ID_IMAGE_BACKGROUND), NAMED(ID_IMAGE_DIGITS),  NAMED(ID_IMAGE_SUN),          NAMED(ID_IMAGE_MOON),
    NAMED(ID_IMAGE_PARTLY),     NAMED(ID_IMAGE_CLOUD),   NAMED(ID_IMAGE_FOG),          NAMED(ID_IMAGE_RAIN),
    NAMED(ID_IMAGE_SNOW),       NAMED(ID_IMAGE_STORM),   NAMED(ID_IMAGE_LOGO),         NAMED(ID_IMAGE_ALARM),
    NAMED(ID_IMAGE_COMPASS),    NAMED(ID_IMAGE_BATTERY), NAMED(ID_IMAGE_WARNING_PUSH),
};

static const named SOUNDS[] = {
    NAMED(ID_AUDIO_CHIME),
    NAMED(ID_AUDIO_ALARM),
    NAMED(ID_AUDIO_TICK),
    NAMED(ID_AUDIO_THUNDER_PUSH),
};

#define COUNT(table) (sizeof(table) / sizeof *(table))

typedef struct application
{
    morvanite_payload resources;
    morvanite_language language[LANGUAGES];
    morvanite_item codes;
    morvanite_item sun_times;
} application;

static const char *explain(morvanite_result result)
{
    return result == MORVANITE_NOT_FOUND ? "not found" : "damaged";
}

static int fail(const char *what, morvanite_result result)
{
    fprintf(stderr, "weatherclock: %s: %s\n", what, explain(result));
    return -1;
}

static int open_resources(application *app, const uint8_t *file, uint32_t size)
{
    const uint8_t *section;
    uint32_t section_size;
    uint32_t offset;
    morvanite_result result = morvanite_find_section(file, size, &section, &section_size, &offset);
    if (result == MORVANITE_NOT_FOUND) {
        fputs("weatherclock: this program contains no resources; run morvanite-cli pack to add them\n", stderr);
        return -1;
    }
    if (result == MORVANITE_OK)
        result = morvanite_open(&app->resources, section, section_size, 0);
    if (result != MORVANITE_OK)
        return fail("the section with the resources", result);
    for (int i = 0; i < LANGUAGES; ++i) {
        result = morvanite_find_language(&app->resources, LANGUAGE[i].number, &app->language[i]);
        if (result != MORVANITE_OK)
            return fail(LANGUAGE[i].name, result);
    }
    result = weather_file(&app->resources, ID_FILE_WEATHER_CODES, "WXC1", &app->codes);
    if (result != MORVANITE_OK)
        return fail("ID_FILE_WEATHER_CODES", result);
    result = weather_file(&app->resources, ID_FILE_SUN_TIMES, "SUN1", &app->sun_times);
    return result == MORVANITE_OK ? 0 : fail("ID_FILE_SUN_TIMES", result);
}

/* Prints a line of the clock's screen between its two edges. */
static void screen_line(const char *text)
{
    fputs("   |  ", stdout);
    text_print(text, 40);
    puts("|");
}

static void screen_edge(void)
{
    puts("   +------------------------------------------+");
}

static void show_forecast(const application *app, const morvanite_language *language, uint32_t day, unsigned code,
                          int temperature)
{
    char heading[TEXT_ROOM];
    char name[TEXT_ROOM];
    char degrees[TEXT_ROOM];
    char line[3 * TEXT_ROOM];
    /* The text from the resources contains the place for the number. It must not be used as a format of printf. */
    text_load(language, ID_STRING_DEGREES_C, degrees, sizeof degrees);
    const char *place = strstr(degrees, "%d");
    const int before = place != NULL ? (int)(place - degrees) : 0;
    snprintf(line, sizeof line, "%s: %s, %.*s%d%s", text_load(language, day, heading, sizeof heading),
             text_load(language, weather_name(weather_from_code(&app->codes, code)), name, sizeof name), before,
             degrees, temperature, place != NULL ? place + 2 : "");
    screen_line(line);
}

static void show_screen(const application *app, const morvanite_language *language)
{
    enum
    {
        LATITUDE = 45,
        JUNE = 5
    };
    char first[TEXT_ROOM];
    char second[TEXT_ROOM];
    char line[3 * TEXT_ROOM];
    unsigned rise;
    unsigned set;

    screen_edge();
    screen_line(text_load(language, ID_STRING_APP_TITLE, first, sizeof first));
    screen_line("");
    screen_line("10:08");
    screen_line("");
    show_forecast(app, language, ID_STRING_TODAY, 2, 21);
    show_forecast(app, language, ID_STRING_TOMORROW, 95, 17);
    if (weather_sun(&app->sun_times, LATITUDE, JUNE, &rise, &set) == 0) {
        snprintf(line, sizeof line, "%s %02u:%02u   %s %02u:%02u",
                 text_load(language, ID_STRING_SUNRISE, first, sizeof first), rise / 60, rise % 60,
                 text_load(language, ID_STRING_SUNSET, second, sizeof second), set / 60, set % 60);
        screen_line(line);
    }
    screen_edge();
}

static void show_strings(const application *app)
{
    static char texts[COUNT(STRINGS)][LANGUAGES][TEXT_ROOM];
    int width[LANGUAGES];
    for (int column = 0; column < LANGUAGES; ++column) {
        width[column] = text_width(LANGUAGE[column].name);
        for (size_t row = 0; row < COUNT(STRINGS); ++row) {
            const char *text = text_load(&app->language[column], STRINGS[row].id, texts[row][column], TEXT_ROOM);
            if (text_width(text) > width[column])
                width[column] = text_width(text);
        }
    }
    printf("\nStrings: %u in %d languages, among them\n", (unsigned)app->language[0].strings.count, LANGUAGES);
    text_print("  ID", 36);
    for (int column = 0; column < LANGUAGES; ++column)
        text_print(LANGUAGE[column].name, column + 1 < LANGUAGES ? width[column] + 2 : 0);
    putchar('\n');
    for (size_t row = 0; row < COUNT(STRINGS); ++row) {
        printf("  %-26s%6u  ", STRINGS[row].name, (unsigned)STRINGS[row].id);
        for (int column = 0; column < LANGUAGES; ++column)
            text_print(texts[row][column], column + 1 < LANGUAGES ? width[column] + 2 : 0);
        putchar('\n');
    }
}

static void show_picture(const uint8_t *data, uint32_t size)
{
    picture_info info;
    if (picture_read(data, size, &info) == 0)
        printf("%4u x %-4u%-10s%7u bytes\n", (unsigned)info.width, (unsigned)info.height, info.format, (unsigned)size);
    else
        printf("not in the device's format%5u bytes\n", (unsigned)size);
}

static int show_images(const application *app)
{
    puts("\nImages");
    for (size_t i = 0; i < COUNT(IMAGES); ++i) {
        morvanite_item item;
        const morvanite_result result = morvanite_find_item(&app->resources, IMAGES[i].id, &item);
        if (result != MORVANITE_OK)
            return fail(IMAGES[i].name, result);
        printf("  %-26s%6u  ", IMAGES[i].name, (unsigned)IMAGES[i].id);
        show_picture(item.data, item.size);
    }
    return 0;
}

static uint32_t little_endian(const uint8_t *bytes)
{
    return bytes[0] | (uint32_t)bytes[1] << 8 | (uint32_t)bytes[2] << 16 | (uint32_t)bytes[3] << 24;
}

/* Sounds are RIFF files with the usual header of 44 bytes; the byte rate is at 28, the size of the samples at 40. */
static int show_sounds(const application *app)
{
    puts("\nSounds");
    for (size_t i = 0; i < COUNT(SOUNDS); ++i) {
        morvanite_item sound;
        const morvanite_result result = weather_file(&app->resources, SOUNDS[i].id, "RIFF", &sound);
        if (result != MORVANITE_OK)
            return fail(SOUNDS[i].name, result);
        const uint32_t rate = sound.size < 44 ? 0 : little_endian(sound.data + 28);
        const unsigned long long bytes = sound.size < 44 ? 0 : little_endian(sound.data + 40);
        printf("  %-26s%6u  %5llu ms            %7u bytes\n", SOUNDS[i].name, (unsigned)SOUNDS[i].id,
               rate == 0 ? 0ULL : bytes * 1000 / rate, (unsigned)sound.size);
    }
    return 0;
}

static int show_entries(const application *app)
{
    uint32_t cursor = 0;
    morvanite_entry entry;
    morvanite_result result;
    puts("\nFiles by name");
    while ((result = morvanite_next_entry(&app->resources, &cursor, &entry)) == MORVANITE_OK) {
        picture_info info;
        printf("  %-34s", entry.name);
        if (strcmp(entry.name, "zep-2.0") == 0)
            printf("%21s%7u items with IDs\n", "", (unsigned)app->resources.items.count);
        else if (picture_read(entry.data, entry.size, &info) == 0)
            show_picture(entry.data, entry.size);
        else
            printf("%21s%7u bytes\n", "", (unsigned)entry.size);
    }
    return result == MORVANITE_NOT_FOUND ? 0 : fail("the directory", result);
}

static int show_all(const application *app, int language)
{
    show_screen(app, &app->language[language]);
    if (start_screen_show(&app->resources, &app->language[language]) != 0)
        return -1;
    show_strings(app);
    if (show_images(app) != 0 || show_sounds(app) != 0)
        return -1;
    return show_entries(app);
}

int main(int argc, char **argv)
{
    int language = 0;
    if (argc > 1) {
        while (language < LANGUAGES && strcmp(argv[1], LANGUAGE[language].code) != 0)
            ++language;
        if (language == LANGUAGES) {
            fprintf(stderr, "weatherclock: no language %s; there are en, ru, zh, hi, ko and ar\n", argv[1]);
            return 2;
        }
    }
    static application app;
    uint32_t size = 0;
    uint8_t *file = own_file_read(argv[0], &size);
    if (file == NULL) {
        fputs("weatherclock: cannot read the program's own file\n", stderr);
        return EXIT_FAILURE;
    }
    const int result = open_resources(&app, file, size) != 0 ? -1 : show_all(&app, language);
    free(file);
    return result == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
