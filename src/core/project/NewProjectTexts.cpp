// SPDX-License-Identifier: MIT
#include "NewProjectTexts.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace
{

QString SizeText(const ScreenSize &size)
{
    return u"%1x%2"_s.arg(size.width).arg(size.height);
}

/// Replaces the words in capitals and "@".
QByteArray Fill(const char *form, const NewProjectChoice &choice)
{
    QStringList sizes;
    for (const ScreenSize &size : choice.resolutions)
        sizes.append(SizeText(size));
    QByteArray text = form;
    text.replace("@NAME@", choice.name.toUtf8());
    text.replace("@SIZE@", sizes.value(0).toUtf8());
    text.replace("@SIZES@", sizes.join(u", "_s).toUtf8());
    text.replace("@LANGUAGE@", choice.languages.empty() ? QByteArray() : choice.languages.front().name.toUtf8());
    text.replace("@TITLE@", TITLE_ID);
    return text;
}

} // namespace

QByteArray ConfigText(const ScreenSize &screen)
{
    static constexpr char FORM[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<project>
    <resolution>
        <Width>@WIDTH@</Width>
        <Height>@HEIGHT@</Height>
    </resolution>
    <zxa>
        <zepversion>20</zepversion>
        <tarvo>checked</tarvo>
    </zxa>
</project>
)";
    QByteArray text = FORM;
    text.replace("@WIDTH@", QByteArray::number(screen.width));
    text.replace("@HEIGHT@", QByteArray::number(screen.height));
    return text;
}

QByteArray IdeProjectText(const NewProjectChoice &choice)
{
    QByteArray text = Fill(R"(<?xml version="1.0" encoding="UTF-8"?>
<!-- The IDE's project file. Morvanite uses only its folder and its name. -->
<VisualStudioProject ProjectType="Visual C++" Version="9.00" Name="@NAME@">
	<Files>
@MAIN@		<File RelativePath=".\ResID\ResID.h" />
	</Files>
</VisualStudioProject>
)",
                           choice);
    text.replace("@MAIN@", choice.hasBuild ? "\t\t<File RelativePath=\".\\main.c\" />\n" : "");
    return text;
}

QByteArray CheckSettingsText(const NewProjectChoice &choice)
{
    return Fill(
        R"(; The settings of "morvanite-cli check" for this project. To use one, remove the semicolon before it and write the
; value that you want. "morvanite-cli check --explain all" prints the rules.

[Check]
; The source language, with which the others are compared: its name, number or code. Without it: the first language.
;source=@LANGUAGE@
; The kinds of placeholders in the texts: printf (%d), braces ({0}), numbered (%1), or none. Without it: all three.
;placeholders=printf
; The screens that are built for. Without it: all screens of the project.
;target=@SIZES@

[Severity]
; The level of a rule: off, note, warning or error.
;end-punctuation=off

[Ignore]
; The IDs for which a rule is ignored; "*" matches any characters.
;translation-missing=ID_DEBUG_*

[Sources]
; The application's sources, relative to this folder, to find unused and undefined IDs.
;files=src/**/*.c, src/**/*.h
; What the IDs in the sources begin with.
;prefix=ID_

[Font]
; The device's font for a language (its code) or for all others (default), and its size in pixels. "shaped": the device
; shapes its texts.
;default=fonts/ui.ttf 16
;ar=fonts/arabic.ttf 18 shaped

[Limit]
; The limits of the texts of some IDs: length in characters, width in pixels, lines.
;ID_BUTTON_*=length 12, width 80, lines 1

[Language]
; The code of a language, by its number, if it isn't that of the program.
;8=de-AT

[Audio]
; The sounds that the device plays, for the rule audio-format.
;codec=pcm, ima-adpcm
;rate=8000, 16000
;channels=1
;bits=16
)",
        choice);
}

QByteArray GitIgnoreText(const NewProjectChoice &choice, const QString &headers)
{
    const QByteArray folder = headers.isEmpty() ? QByteArray() : "/" + headers.toUtf8() + "/\n";
    return folder + "*.tmp\n*.pkd\n/arm/\n" + (choice.hasBuild ? "/build/\n" : "");
}

QByteArray GitAttributesText(GitForm form, const QString &strings)
{
    const QByteArray lists = "*.res.xml -text merge=morvanite\n";
    if (form == GitForm::Text)
        return strings.toUtf8() + " text working-tree-encoding=UTF-16LE-BOM eol=crlf merge=morvanite\n" + lists;
    return strings.toUtf8() + " -text diff=morvanite merge=morvanite\n" + lists;
}

QByteArray CMakeListsText(const NewProjectChoice &choice)
{
    return Fill(R"(# The application, with its resources:
#   cmake -S . -B build --toolchain arm.cmake
#   cmake --build build
cmake_minimum_required(VERSION 3.20)
project(@NAME@ LANGUAGES C)
find_package(Morvanite 1.0 REQUIRED)

set(RESOLUTION @SIZE@ CACHE STRING "Screen of the device: @SIZES@")

add_executable(@NAME@ main.c)
set_target_properties(@NAME@ PROPERTIES SUFFIX .axf C_STANDARD 99)
target_link_libraries(@NAME@ PRIVATE Morvanite::Device)
target_link_options(@NAME@ PRIVATE -static)

morvanite_pack(@NAME@ PROJECT @NAME@.vcproj RESOLUTION ${RESOLUTION} CONVERT_IMAGES)
)",
                choice);
}

QByteArray ToolchainText()
{
    return R"(# A toolchain for 32-bit ARM with Linux, so that qemu-arm can run the result. Replace it by that of your device.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR arm)
set(CMAKE_C_COMPILER arm-linux-gnueabihf-gcc)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
)";
}

QByteArray MainText(const NewProjectChoice &choice)
{
    return Fill(R"(/* Shows the text @TITLE@ in each language of the resources.
 *
 * The resources are a section of the packed program, which finds them in its own file. An application that knows the
 * address of its resources calls morvanite_open with that address. */
#include "ResID.h"
#include "morvanite_device.h"
#include "morvanite_elf.h"

#include <stdio.h>
#include <stdlib.h>

/* Returns the bytes of the program's own file, which the caller frees; null on failure. */
static uint8_t *read_own_file(uint32_t *size)
{
    FILE *file = fopen("/proc/self/exe", "rb");
    uint8_t *bytes = NULL;
    long length = 0;
    if (file == NULL)
        return NULL;
    if (fseek(file, 0, SEEK_END) == 0 && (length = ftell(file)) > 0 && fseek(file, 0, SEEK_SET) == 0)
        bytes = malloc((size_t)length);
    if (bytes != NULL && fread(bytes, 1, (size_t)length, file) != (size_t)length) {
        free(bytes);
        bytes = NULL;
    }
    fclose(file);
    *size = (uint32_t)length;
    return bytes;
}

static void show_titles(const morvanite_payload *resources)
{
    morvanite_item item;
    for (uint32_t i = 0; morvanite_item_at(resources, i, &item) == MORVANITE_OK; ++i) {
        morvanite_language language;
        morvanite_string title;
        char text[128];
        if (!MORVANITE_IS_LANGUAGE(item.key) || morvanite_open_language(&item, &language) != MORVANITE_OK ||
            morvanite_find_string(&language, @TITLE@, &title) != MORVANITE_OK)
            continue;
        morvanite_string_utf8(&title, text, sizeof text);
        puts(text);
    }
}

int main(void)
{
    uint32_t size = 0;
    uint8_t *file = read_own_file(&size);
    const uint8_t *section;
    uint32_t section_size;
    uint32_t offset;
    morvanite_payload resources;
    int status = EXIT_FAILURE;
    if (file == NULL) {
        fputs("The program can't read its own file.\n", stderr);
    } else if (morvanite_find_section(file, size, &section, &section_size, &offset) != MORVANITE_OK ||
               morvanite_open(&resources, section, section_size, 0) != MORVANITE_OK) {
        fputs("This program has no resources: run the packed one.\n", stderr);
    } else {
        show_titles(&resources);
        status = EXIT_SUCCESS;
    }
    free(file);
    return status;
}
)",
                choice);
}
