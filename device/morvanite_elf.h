/* Finds the payload in an application's own file, for devices whose applications are ELF files that they can read. Not
 * needed where the firmware knows the address of its resources. Under the same rules as morvanite_device.h. */
#ifndef MORVANITE_ELF_H
#define MORVANITE_ELF_H

#include "morvanite_device.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Looks in a whole 32-bit little-endian ELF file in memory for the last section named ".zp_res"; with several the last
 * one is the newest. Gives where its bytes lie in memory, their number, and the section's offset in the file: the base
 * of a payload that was packed with `relativeoffset` other than 1; with the default the base is 0 whatever the offset
 * is.
 *
 * MORVANITE_NOT_FOUND: no such section. MORVANITE_DAMAGED: no such file, or its tables or the section aren't within it.
 */
morvanite_result morvanite_find_section(const void *file, uint32_t file_size, const uint8_t **payload, uint32_t *size,
                                        uint32_t *offset);

#ifdef __cplusplus
}
#endif

#endif
