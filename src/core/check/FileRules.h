// SPDX-License-Identifier: MIT
#pragma once

#include "CheckInput.h"
#include "FileCheckInput.h"

// The rules about files. The table of rules (Rules.cpp) says what each finds.

void FileMissing(const FileCheckInput &input, RuleReport &report);
void FileEmpty(const FileCheckInput &input, RuleReport &report);
void FileCase(const FileCheckInput &input, RuleReport &report);
void FileOutside(const FileCheckInput &input, RuleReport &report);
void DuplicateFile(const FileCheckInput &input, RuleReport &report);
void FileType(const FileCheckInput &input, RuleReport &report);

/// Compares the WAV files with section Audio of the settings. Its keys have lists of what the device plays; a key that
/// is missing allows anything:
///
///     codec=pcm, ima-adpcm     names (WaveCodecOf) or the format's number
///     rate=8000, 16000         samples a second
///     channels=1
///     bits=8, 16               of a sample
void AudioFormat(const FileCheckInput &input, RuleReport &report);
void ListLine(const CheckInput &input, RuleReport &report);
/// Compares the payload of a pack for each screen with the key `budget`.
void PayloadBudget(const CheckInput &input, RuleReport &report);
