/* KRT barcode font encoder: the engine as a C library.
 *
 * Plain C11, usable from C++. Every function may be called from any thread at once; the
 * library keeps no state between calls. No C++ exception leaves it: faults come back as
 * statuses. Strings are Windows-1252 bytes unless the flag KRT_UTF8 asks for UTF-8, both
 * for what goes in (content) and what comes out (glyphs, texts).
 *
 * Buffers are the caller's: a function that writes text takes (buffer, size, written),
 * writes a NUL-terminated string, and sets *written (when written is not NULL) to its
 * length without the NUL. When the text does not fit it answers KRT_BUFFER_TOO_SMALL,
 * writes nothing past size bytes (an empty string when size > 0), and *written is the
 * length needed. The buffer may be NULL when size is 0, to ask for the length.
 *
 * Results with several texts (the entry level, GS1-128) come as a krt_result handle that
 * krt_result_free releases.
 */
#ifndef KRT_KRT_H
#define KRT_KRT_H

#include <stddef.h>

#if defined(_WIN32) || defined(__CYGWIN__)
#  if defined(KRT_STATIC)
#    define KRT_API
#  elif defined(KRT_BUILDING)
#    define KRT_API __declspec(dllexport)
#  else
#    define KRT_API __declspec(dllimport)
#  endif
#  if defined(_WIN64)
#    define KRT_CALL
#  else
#    define KRT_CALL __stdcall /* what 32-bit hosts (VBA, older report writers) call */
#  endif
#elif defined(__GNUC__)
#  define KRT_API __attribute__((visibility("default")))
#  define KRT_CALL
#else
#  define KRT_API
#  define KRT_CALL
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* Statuses. */
enum { KRT_OK = 0, KRT_REFUSED = 1, KRT_UNKNOWN_SYMBOLOGY = 2, KRT_BUFFER_TOO_SMALL = 3,
       KRT_BAD_ESCAPE = 4, KRT_CHECKSUM_OVERFLOW = 5, KRT_OUT_OF_RANGE = 6, KRT_INVALID_ARGUMENT = 7,
       KRT_OUT_OF_MEMORY = 8, KRT_INTERNAL_ERROR = 9 };

/* Flags. */
#define KRT_CHECK 1u        /* the check-digit option */
#define KRT_UTF8 2u         /* content is UTF-8 and the glyphs are returned as UTF-8; otherwise both are Windows-1252 bytes */
#define KRT_HRC 4u          /* entry level: the human readable text option (Code 32 drawn with its text line) */
#define KRT_CHECK_IN_HRC 8u /* entry level: check characters shown in the human readable text */
#define KRT_ITALIAN 16u     /* texts of refusal reasons in Italian */

/* A content length meaning "the content is NUL-terminated". */
#define KRT_NUL_TERMINATED ((size_t)-1)

/* Encodes content (length bytes) with a symbology code ("EAN13", "C128" ..., any case) into
 * the glyph string of the barcode font. KRT_REFUSED when the content is not allowed (glyphs is
 * ""), KRT_UNKNOWN_SYMBOLOGY, KRT_BAD_ESCAPE / KRT_CHECKSUM_OVERFLOW / KRT_OUT_OF_RANGE for
 * content the engine cannot read, KRT_INVALID_ARGUMENT for a NULL symbology or content or
 * malformed UTF-8 with KRT_UTF8. With KRT_UTF8 a character that Windows-1252 lacks is refused. */
KRT_API int KRT_CALL krt_encode(const char *symbology, const char *content, size_t length, unsigned flags,
                                char *glyphs, size_t size, size_t *written);

/* English text of a status; never NULL. */
KRT_API const char *KRT_CALL krt_strerror(int status);

/* Version of the library, "MAJOR.MINOR.PATCH". */
KRT_API const char *KRT_CALL krt_version(void);

/* ---- Why content is refused ------------------------------------------------------------ */

enum { KRT_REASON_NONE = 0, KRT_REASON_EMPTY = 1, KRT_REASON_LENGTH = 2, KRT_REASON_CHARACTER = 3,
       KRT_REASON_STRUCTURE = 4, KRT_REASON_RANGE = 5, KRT_REASON_ESCAPE = 6, KRT_REASON_OVERFLOW = 7 };

typedef struct krt_reason {
    int kind;                /* KRT_REASON_* */
    size_t position;         /* 1-based: the refused character of the content as typed (a character,
                                not a byte, with KRT_UTF8), or the refused AI/value pair of
                                GS1-128; 0 when the reason has no place */
    unsigned char character; /* the refused byte (Windows-1252) for KRT_REASON_CHARACTER; 0 for a
                                character that Windows-1252 lacks */
    size_t minimum, maximum; /* KRT_REASON_LENGTH: the lengths allowed (maximum 0: at least minimum) */
    char text[256];          /* one line, NUL-terminated, English (Italian with KRT_ITALIAN),
                                UTF-8 with KRT_UTF8, else Windows-1252 */
} krt_reason;

/* The reason krt_encode refuses content (same arguments): KRT_OK and kind KRT_REASON_NONE when
 * the content is accepted, KRT_REFUSED with the reason filled, or the status of krt_encode
 * (for KRT_BAD_ESCAPE, KRT_CHECKSUM_OVERFLOW and KRT_OUT_OF_RANGE with the reason too). */
KRT_API int KRT_CALL krt_explain(const char *symbology, const char *content, size_t length, unsigned flags,
                                 krt_reason *reason);

/* ---- Results with several texts ------------------------------------------------------------ */

typedef struct krt_result krt_result;

/* Texts of a result. */
enum { KRT_FIELD_GLYPHS = 0,  /* main glyphs followed by the add-on glyphs */
       KRT_FIELD_CODE = 1,    /* symbology code of the main part ("C32HRC" for Code 32 with KRT_HRC) */
       KRT_FIELD_MAIN = 2,    /* main part of the content, normalised (padded, upper case, check added) */
       KRT_FIELD_ADDON = 3,   /* add-on part, "" for an entry without add-on */
       KRT_FIELD_FAMILY = 4,  /* font family for the style, "" when the style has no face */
       KRT_FIELD_HRC = 5,     /* human readable text of the preview ("(AI)value" for GS1-128) */
       KRT_FIELD_CONTENT = 6, /* content as the engine reads it (GS1-128: escaped element strings) */
       KRT_FIELD_REASON = 7   /* text of the refusal reason, "" when accepted */ };

/* The entry level: what the window draws for a display name (English or Italian, any case;
 * a symbology code names its entry too) with the options KRT_CHECK, KRT_HRC,
 * KRT_CHECK_IN_HRC and the font style ("Normal", "Bold"..., English or Italian; NULL is
 * "Normal"). Answers KRT_OK or KRT_REFUSED (and KRT_BAD_ESCAPE, KRT_CHECKSUM_OVERFLOW,
 * KRT_OUT_OF_RANGE, with the reason) with *result set: free it with krt_result_free. Any
 * other status leaves *result NULL. */
KRT_API int KRT_CALL krt_entry_encode(const char *name, const char *content, size_t length, unsigned flags,
                                      const char *style, krt_result **result);

/* GS1-128 from count AI/value pairs ("01", "09501101530003"), checked as the wizard checks
 * them, composed and encoded as the "EAN 128" entry. On refusal the reason's position is the
 * 1-based pair. Answers as krt_entry_encode. */
KRT_API int KRT_CALL krt_gs1_encode(const char *const *ais, const char *const *values, size_t count,
                                    unsigned flags, const char *style, krt_result **result);

/* The same from one text "(01)09501101530003(10)ABC" (length bytes). */
KRT_API int KRT_CALL krt_gs1_encode_text(const char *text, size_t length, unsigned flags, const char *style,
                                         krt_result **result);

/* Status of a result: the status the call answered. */
KRT_API int KRT_CALL krt_result_status(const krt_result *result);
/* Flags in effect: KRT_CHECK when check characters were used (always for ISBN entries). */
KRT_API unsigned KRT_CALL krt_result_flags(const krt_result *result);
/* A text of the result, NUL-terminated, owned by the result; *length (when not NULL) without
 * the NUL. "" for a NULL result or an unknown field. */
KRT_API const char *KRT_CALL krt_result_text(const krt_result *result, int field, size_t *length);
/* The same text copied into a caller's buffer (for hosts that cannot read a pointer). */
KRT_API int KRT_CALL krt_result_copy(const krt_result *result, int field, char *buffer, size_t size,
                                     size_t *written);
/* The refusal reason (kind KRT_REASON_NONE when accepted); KRT_INVALID_ARGUMENT for NULLs. */
KRT_API int KRT_CALL krt_result_reason(const krt_result *result, krt_reason *reason);
KRT_API void KRT_CALL krt_result_free(krt_result *result);

/* ---- ISBN ----------------------------------------------------------------------------- */

#define KRT_ISBN10 0u  /* the ISBN-10 form */
#define KRT_ISBN13 32u /* the ISBN-13 form */

/* Converts an ISBN-10 or ISBN-13 (hyphens and spaces ignored, check character included) to
 * the hyphenated form that flags ask for (KRT_ISBN10 or KRT_ISBN13, and KRT_ITALIAN for the
 * reason's text). KRT_REFUSED for an empty text, a wrong length, a bad character or a wrong
 * check character (reason, when not NULL, says which; position is over the text as typed). */
KRT_API int KRT_CALL krt_isbn_convert(const char *isbn, size_t length, unsigned flags, char *out, size_t size,
                                      size_t *written, krt_reason *reason);

/* The check character of 9 digits (ISBN-10, written as "DDDDDDDDD-C") or 12 digits (ISBN-13,
 * the 13 digits): the text the ISBN entries complete. KRT_REFUSED for another length or a
 * character other than a digit. */
KRT_API int KRT_CALL krt_isbn_complete(const char *digits, size_t length, char *out, size_t size,
                                       size_t *written);

#ifdef __cplusplus
}
#endif

#endif /* KRT_KRT_H */
