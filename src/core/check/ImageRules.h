// SPDX-License-Identifier: MIT
#pragma once

#include "CheckInput.h"

// The rules about images. The table of rules (Rules.cpp) says what each finds.

void ImageUnreadable(const CheckInput &input, RuleReport &report);
void ImageFormat(const CheckInput &input, RuleReport &report);
void ImageTooLarge(const CheckInput &input, RuleReport &report);
void ImageSizeDiffers(const CheckInput &input, RuleReport &report);
void ImageSameEverywhere(const CheckInput &input, RuleReport &report);
void ImageAlphaFew(const CheckInput &input, RuleReport &report);
void ImageResolutionMissing(const CheckInput &input, RuleReport &report);
