// SPDX-License-Identifier: MIT
#pragma once

#include "FileCheckInput.h"

// The rules about images. The table of rules (Rules.cpp) says what each finds.

void ImageUnreadable(const FileCheckInput &input, RuleReport &report);
void ImageFormat(const FileCheckInput &input, RuleReport &report);
void ImageTooLarge(const FileCheckInput &input, RuleReport &report);
void ImageSizeDiffers(const FileCheckInput &input, RuleReport &report);
void ImageSameEverywhere(const FileCheckInput &input, RuleReport &report);
void ImageAlphaFew(const FileCheckInput &input, RuleReport &report);
void ImageResolutionMissing(const FileCheckInput &input, RuleReport &report);
