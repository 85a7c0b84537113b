/* SPDX-License-Identifier: MIT */
/* Finds the payload in an application's own file, for devices whose applications are ELF files that they can read. Not
 * needed if the firmware knows the address of its resources. Follows the rules of morvanite_device.h. */
#ifndef MORVANITE_ELF_H
#define MORVANITE_ELF_H

#include "morvanite_device.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Finds the last section named ".zp_res", which is the newest if there are several, in a whole 32-bit little-endian ELF
 * file in memory. Returns the address and the number of its bytes, and the section's offset in the file, which is the
 * base of a payload that was packed with `relativeoffset` other than 1; with the default the base is 0 whatever the
 * offset is.
 *
 * MORVANITE_NOT_FOUND: no such section. MORVANITE_DAMAGED: not such a file, or its tables or the section aren't within
 * it.
 */
morvanite_result morvanite_find_section(const void *file, uint32_t file_size, const uint8_t **payload, uint32_t *size,
                                        uint32_t *offset);

#ifdef __cplusplus
}
#endif

#endif
