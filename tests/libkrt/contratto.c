/* The contract of <krt/krt.h> as a C program sees it: statuses, buffer sizes, NULL
 * arguments, the UTF-8 flag, results with several texts, and threads encoding at once.
 * Compiled as C11, linked with the shared library. */
#include <krt/krt.h>

#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#ifdef _WIN32
/* Windows' C runtimes have no <threads.h>: the three calls used here, on Windows threads. */
#include <process.h>
#include <windows.h>
typedef HANDLE thrd_t;
enum { thrd_success = 0, thrd_error = 1 };
struct avvio {
    int (*funzione)(void *);
    void *arg;
};
static unsigned __stdcall avvia(void *p) {
    const struct avvio a = *(struct avvio *)p;
    free(p);
    return (unsigned)a.funzione(a.arg);
}
static int thrd_create(thrd_t *filo, int (*funzione)(void *), void *arg) {
    struct avvio *a = malloc(sizeof *a);
    if (a == NULL) return thrd_error;
    a->funzione = funzione;
    a->arg = arg;
    *filo = (HANDLE)_beginthreadex(NULL, 0, avvia, a, 0, NULL);
    if (*filo == 0) free(a);
    return *filo != 0 ? thrd_success : thrd_error;
}
static int thrd_join(thrd_t filo, int *esito) {
    DWORD codice = 0;
    WaitForSingleObject(filo, INFINITE);
    GetExitCodeThread(filo, &codice);
    CloseHandle(filo);
    if (esito != NULL) *esito = (int)codice;
    return thrd_success;
}
#elif !defined(__STDC_NO_THREADS__)
#include <threads.h>
#endif

#ifdef _WIN64
#include <stddef.h>
/* The layout the VBA module (libkrt/vba/KRT.bas) reads a reason with. */
_Static_assert(offsetof(krt_reason, text) == 40 && sizeof(krt_reason) == 296, "krt_reason as KRT.bas reads it");
#endif

static int fallimenti = 0;

#define VERIFICA(condizione, ...)                                       \
    do {                                                                \
        if (!(condizione)) {                                            \
            fprintf(stderr, "%s:%d: %s: ", __FILE__, __LINE__, #condizione); \
            fprintf(stderr, __VA_ARGS__);                               \
            fputc('\n', stderr);                                        \
            ++fallimenti;                                               \
        }                                                               \
    } while (0)


struct caso {
    const char *nome;
    const char *simbologia;
    const char *contenuto;
    size_t lunghezza;
    unsigned flag;
    int stato;
    int motivo;       /* reason kind krt_explain gives */
    size_t posizione; /* and its position */
};

static const struct caso casi[] = {
    {"EAN-13 with check", "EAN13", "978882030000", KRT_NUL_TERMINATED, KRT_CHECK, KRT_OK, KRT_REASON_NONE, 0},
    {"code in any case", "eAn13", "978882030000", KRT_NUL_TERMINATED, KRT_CHECK, KRT_OK, KRT_REASON_NONE, 0},
    {"length counts, not the NUL", "EAN13", "978882030000XYZ", 12, KRT_CHECK, KRT_OK, KRT_REASON_NONE, 0},
    {"UTF-8 of ASCII content", "C128", "KRT 2024", KRT_NUL_TERMINATED, KRT_UTF8, KRT_OK, KRT_REASON_NONE, 0},
    {"letter in EAN-13", "EAN13", "97888203000A", KRT_NUL_TERMINATED, KRT_CHECK, KRT_REFUSED, KRT_REASON_CHARACTER, 12},
    {"empty content", "C39", "", 0, 0, KRT_REFUSED, KRT_REASON_EMPTY, 0},
    {"unknown symbology", "EAN14", "1", KRT_NUL_TERMINATED, 0, KRT_UNKNOWN_SYMBOLOGY, KRT_REASON_NONE, 0},
    {"empty symbology", "", "1", KRT_NUL_TERMINATED, 0, KRT_UNKNOWN_SYMBOLOGY, KRT_REASON_NONE, 0},
    {"escape without a character", "C128", "\\q", KRT_NUL_TERMINATED, 0, KRT_BAD_ESCAPE, KRT_REASON_ESCAPE, 0},
    {"malformed UTF-8", "C128", "A\xC3", KRT_NUL_TERMINATED, KRT_UTF8, KRT_INVALID_ARGUMENT, KRT_REASON_NONE, 0},
    {"character outside Windows-1252, counted in characters", "C128", "\xC3\xA9\xE4\xB8\x80", KRT_NUL_TERMINATED,
     KRT_UTF8, KRT_REFUSED, KRT_REASON_CHARACTER, 2},
    {"content beyond 4096 bytes", "C128", NULL, 5000, 0, KRT_REFUSED, KRT_REASON_LENGTH, 0},
    {"Code 128 check sum beyond its range", "C128", NULL, 400, 0, KRT_CHECKSUM_OVERFLOW, KRT_REASON_OVERFLOW, 0},
};

static char tilde[5001];

static const char *contenuto_di(const struct caso *c) { return c->contenuto != NULL ? c->contenuto : tilde; }

static void statuses(void) {
    for (size_t i = 0; i < sizeof casi / sizeof casi[0]; ++i) {
        const struct caso *c = &casi[i];
        char glifi[256];
        size_t scritti = 99;
        memset(glifi, 'Z', sizeof glifi);
        const int stato = krt_encode(c->simbologia, contenuto_di(c), c->lunghezza, c->flag, glifi, sizeof glifi, &scritti);
        VERIFICA(stato == c->stato, "%s: status %d (%s), expected %d", c->nome, stato, krt_strerror(stato), c->stato);
        if (stato == KRT_OK) {
            VERIFICA(scritti > 0 && scritti == strlen(glifi), "%s: written %zu, glyphs of %zu", c->nome, scritti,
                     strlen(glifi));
        } else {
            VERIFICA(glifi[0] == '\0' && scritti == 0, "%s: not an empty result after status %d", c->nome, stato);
        }
        krt_reason motivo;
        const int spiegato = krt_explain(c->simbologia, contenuto_di(c), c->lunghezza, c->flag, &motivo);
        VERIFICA(spiegato == stato, "%s: krt_explain says %d", c->nome, spiegato);
        VERIFICA(motivo.kind == c->motivo && motivo.position == c->posizione &&
                     (motivo.kind == KRT_REASON_NONE) == (motivo.text[0] == '\0'),
                 "%s: reason kind %d at %zu, text \"%s\"", c->nome, motivo.kind, motivo.position, motivo.text);
    }
}

/* Every size from 0 to one past the glyphs: KRT_BUFFER_TOO_SMALL with the length needed and
 * nothing written past size, then the whole string. */
static void buffer_sizes(void) {
    static const struct { const char *simbologia, *contenuto; unsigned flag; } righe[] = {
        {"EAN13", "978882030000", KRT_CHECK},
        {"E128", "010950110153000310ABC", KRT_UTF8}, /* glyphs beyond ASCII: longer in UTF-8 */
        {"E128", "010950110153000310ABC", 0},
        {"ISBN13", "978030640615", KRT_CHECK}, /* two lines */
    };
    for (size_t r = 0; r < sizeof righe / sizeof righe[0]; ++r) {
        size_t necessari = 0;
        int stato = krt_encode(righe[r].simbologia, righe[r].contenuto, KRT_NUL_TERMINATED, righe[r].flag, NULL, 0,
                               &necessari);
        VERIFICA(stato == KRT_BUFFER_TOO_SMALL && necessari > 0, "%s: size query gives %d, %zu", righe[r].simbologia,
                 stato, necessari);
        char buffer[300];
        for (size_t size = 0; size <= necessari + 1 && necessari + 8 < sizeof buffer; ++size) {
            memset(buffer, 'Z', sizeof buffer);
            size_t scritti = 0;
            stato = krt_encode(righe[r].simbologia, righe[r].contenuto, KRT_NUL_TERMINATED, righe[r].flag, buffer, size,
                               &scritti);
            VERIFICA(scritti == necessari, "%s size %zu: written %zu, needed %zu", righe[r].simbologia, size, scritti,
                     necessari);
            const size_t intatti = size <= necessari ? size : necessari + 1;
            for (size_t k = intatti; k < necessari + 8; ++k)
                VERIFICA(buffer[k] == 'Z', "%s size %zu: byte %zu written", righe[r].simbologia, size, k);
            if (size <= necessari) {
                VERIFICA(stato == KRT_BUFFER_TOO_SMALL, "%s size %zu: status %d", righe[r].simbologia, size, stato);
                VERIFICA(size == 0 || buffer[0] == '\0', "%s size %zu: not empty", righe[r].simbologia, size);
            } else {
                VERIFICA(stato == KRT_OK && buffer[necessari] == '\0' && strlen(buffer) == necessari,
                         "%s size %zu: status %d", righe[r].simbologia, size, stato);
            }
        }
    }
}

/* The UTF-8 flag gives the UTF-8 form of the Windows-1252 glyphs. */
static size_t in_utf8(const char *cp1252, char *uscita) {
    static const unsigned short alto[32] = {
        0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
        0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
        0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
    size_t n = 0;
    for (const unsigned char *p = (const unsigned char *)cp1252; *p != 0; ++p) {
        const unsigned cp = *p >= 0x80 && *p < 0xA0 ? alto[*p - 0x80] : *p;
        if (cp < 0x80) {
            uscita[n++] = (char)cp;
        } else if (cp < 0x800) {
            uscita[n++] = (char)(0xC0 | (cp >> 6));
            uscita[n++] = (char)(0x80 | (cp & 0x3F));
        } else {
            uscita[n++] = (char)(0xE0 | (cp >> 12));
            uscita[n++] = (char)(0x80 | ((cp >> 6) & 0x3F));
            uscita[n++] = (char)(0x80 | (cp & 0x3F));
        }
    }
    uscita[n] = '\0';
    return n;
}

static void utf8_flag(void) {
    static const char *const contenuti[][2] = {{"E128", "010950110153000310ABC"}, {"C128", "Tab\\009x"},
                                               {"CBAR", "A123456B"}};
    for (size_t i = 0; i < sizeof contenuti / sizeof contenuti[0]; ++i) {
        char cp1252[256], utf8[256], atteso[768];
        size_t n1 = 0, n2 = 0;
        const int s1 = krt_encode(contenuti[i][0], contenuti[i][1], KRT_NUL_TERMINATED, 0, cp1252, sizeof cp1252, &n1);
        const int s2 =
            krt_encode(contenuti[i][0], contenuti[i][1], KRT_NUL_TERMINATED, KRT_UTF8, utf8, sizeof utf8, &n2);
        const size_t n = in_utf8(cp1252, atteso);
        VERIFICA(s1 == KRT_OK && s2 == KRT_OK && n2 == n && strcmp(utf8, atteso) == 0, "%s %s: UTF-8 glyphs differ",
                 contenuti[i][0], contenuti[i][1]);
    }
}

static void null_arguments(void) {
    char glifi[64];
    size_t scritti = 7;
    struct { const char *nome, *simbologia, *contenuto; char *glifi; size_t size; } righe[] = {
        {"symbology", NULL, "1", glifi, sizeof glifi},
        {"content", "EAN13", NULL, glifi, sizeof glifi},
        {"glyphs with a size", "EAN13", "978882030000", NULL, 1},
    };
    for (size_t i = 0; i < sizeof righe / sizeof righe[0]; ++i) {
        strcpy(glifi, "old");
        const int stato = krt_encode(righe[i].simbologia, righe[i].contenuto, KRT_NUL_TERMINATED, KRT_CHECK,
                                     righe[i].glifi, righe[i].size, &scritti);
        VERIFICA(stato == KRT_INVALID_ARGUMENT, "NULL %s: status %d", righe[i].nome, stato);
        VERIFICA(righe[i].glifi == NULL || glifi[0] == '\0', "NULL %s: glyphs not emptied", righe[i].nome);
    }
    VERIFICA(krt_encode("EAN13", "978882030000", 12, KRT_CHECK, glifi, sizeof glifi, NULL) == KRT_OK,
             "written may be NULL");
    krt_reason motivo;
    krt_result *r = (krt_result *)&motivo;
    VERIFICA(krt_explain("EAN13", "1", 1, 0, NULL) == KRT_INVALID_ARGUMENT, "krt_explain without reason");
    VERIFICA(krt_entry_encode(NULL, "1", 1, 0, NULL, &r) == KRT_INVALID_ARGUMENT && r == NULL, "entry without name");
    VERIFICA(krt_entry_encode("EAN 13", "1", 1, 0, NULL, NULL) == KRT_INVALID_ARGUMENT, "entry without result");
    VERIFICA(krt_gs1_encode(NULL, NULL, 1, 0, NULL, &r) == KRT_INVALID_ARGUMENT && r == NULL, "GS1 without pairs");
    VERIFICA(strcmp(krt_result_text(NULL, KRT_FIELD_GLYPHS, &scritti), "") == 0 && scritti == 0, "text of NULL");
    VERIFICA(krt_result_reason(NULL, &motivo) == KRT_INVALID_ARGUMENT, "reason of NULL");
    krt_result_free(NULL);
    VERIFICA(krt_isbn_convert(NULL, 0, KRT_ISBN13, glifi, sizeof glifi, &scritti, NULL) == KRT_INVALID_ARGUMENT,
             "ISBN NULL");
    VERIFICA(krt_isbn_complete("030640615", KRT_NUL_TERMINATED, NULL, 1, &scritti) == KRT_INVALID_ARGUMENT,
             "ISBN digits into NULL");
    VERIFICA(krt_result_copy(NULL, KRT_FIELD_GLYPHS, glifi, sizeof glifi, &scritti) == KRT_INVALID_ARGUMENT,
             "copy of NULL");
    const char *ai[] = {"01"}, *valori[] = {NULL};
    VERIFICA(krt_gs1_encode(NULL, NULL, 1, 0, NULL, NULL) == KRT_INVALID_ARGUMENT &&
                 krt_gs1_encode(ai, valori, 1, 0, NULL, NULL) == KRT_INVALID_ARGUMENT,
             "GS1 without pairs or a value, and without result");
}

static void texts(void) {
    for (int stato = -1; stato <= 12; ++stato) {
        const char *t = krt_strerror(stato);
        VERIFICA(t != NULL && t[0] != '\0', "no text for status %d", stato);
        for (int altro = 0; altro < stato && stato <= KRT_INTERNAL_ERROR; ++altro)
            VERIFICA(strcmp(t, krt_strerror(altro)) != 0, "statuses %d and %d share a text", stato, altro);
    }
    unsigned a, b, c;
    char resto;
    VERIFICA(sscanf(krt_version(), "%u.%u.%u%c", &a, &b, &c, &resto) == 3, "version \"%s\"", krt_version());
}

/* Entry level, GS1-128 and ISBN: one row each of what they add to krt_encode. */
static void results(void) {
    krt_result *r = NULL;
    int stato = krt_entry_encode("ean 13 add-on 2", "97888203000012", KRT_NUL_TERMINATED, KRT_CHECK, "Bold", &r);
    VERIFICA(stato == KRT_OK && (krt_result_flags(r) & KRT_CHECK), "add-on entry: %d", stato);
    VERIFICA(strcmp(krt_result_text(r, KRT_FIELD_ADDON, NULL), "12") == 0, "add-on part \"%s\"",
             krt_result_text(r, KRT_FIELD_ADDON, NULL));
    char glifi[64], copia[64];
    size_t n = 0, m = 0;
    krt_encode("EAN13", "978882030000", 12, KRT_CHECK, glifi, sizeof glifi, &n);
    VERIFICA(strncmp(krt_result_text(r, KRT_FIELD_GLYPHS, &m), glifi, n) == 0 && m > n, "main glyphs first");
    VERIFICA(krt_result_copy(r, KRT_FIELD_GLYPHS, copia, m, &n) == KRT_BUFFER_TOO_SMALL && n == m, "copy too small");
    VERIFICA(krt_result_copy(r, KRT_FIELD_GLYPHS, copia, m + 1, &n) == KRT_OK && n == m, "copy");
    VERIFICA(krt_result_copy(r, KRT_FIELD_GLYPHS, NULL, 0, &n) == KRT_BUFFER_TOO_SMALL && n == m, "length asked");
    VERIFICA(krt_result_copy(r, KRT_FIELD_GLYPHS, NULL, 5, &n) == KRT_INVALID_ARGUMENT, "NULL buffer with a size");
    VERIFICA(krt_result_copy(r, KRT_FIELD_REASON, copia, sizeof copia, &n) == KRT_OK && n == 0, "last field");
    krt_result_free(r);

    stato = krt_entry_encode("Codice 39", "ab\xE7", KRT_NUL_TERMINATED, KRT_ITALIAN, NULL, &r);
    krt_reason motivo;
    krt_result_reason(r, &motivo);
    VERIFICA(stato == KRT_REFUSED && krt_result_status(r) == KRT_REFUSED && motivo.kind != KRT_REASON_NONE &&
                 strcmp(krt_result_text(r, KRT_FIELD_REASON, NULL), motivo.text) == 0 &&
                 krt_result_text(r, KRT_FIELD_GLYPHS, NULL)[0] == '\0',
             "refused entry: %d \"%s\"", stato, motivo.text);
    krt_result_free(r);
    VERIFICA(krt_entry_encode("EAN 15", "1", 1, 0, NULL, &r) == KRT_UNKNOWN_SYMBOLOGY && r == NULL, "unknown entry");

    const char *ai[] = {"01", "10", "17"};
    const char *valori[] = {"09501101530003", "ABC", "2612"};
    stato = krt_gs1_encode(ai, valori, 2, 0, NULL, &r);
    VERIFICA(stato == KRT_OK && strcmp(krt_result_text(r, KRT_FIELD_HRC, NULL), "(01)09501101530003(10)ABC") == 0,
             "GS1-128: %d \"%s\"", stato, krt_result_text(r, KRT_FIELD_HRC, NULL));
    krt_result_free(r);
    stato = krt_gs1_encode(ai, valori, 3, 0, NULL, &r);
    krt_result_reason(r, &motivo);
    VERIFICA(stato == KRT_REFUSED && motivo.position == 3, "GS1-128 short date: %d at pair %zu", stato,
             motivo.position);
    krt_result_free(r);

    stato = krt_isbn_convert("0-306-40615-2", KRT_NUL_TERMINATED, KRT_ISBN13, glifi, sizeof glifi, &n, &motivo);
    VERIFICA(stato == KRT_OK && strcmp(glifi, "978-0-306-40615-7") == 0, "ISBN: %d \"%s\"", stato, glifi);
    stato = krt_isbn_convert("0-3O6-40615-2", KRT_NUL_TERMINATED, KRT_ISBN13, glifi, sizeof glifi, &n, &motivo);
    VERIFICA(stato == KRT_REFUSED && motivo.kind == KRT_REASON_CHARACTER && motivo.position == 4 &&
                 motivo.character == 'O' && glifi[0] == '\0',
             "ISBN letter O: %d kind %d at %zu", stato, motivo.kind, motivo.position);
    stato = krt_isbn_convert("0-306-4061", KRT_NUL_TERMINATED, KRT_ISBN13, glifi, sizeof glifi, &n, &motivo);
    VERIFICA(stato == KRT_REFUSED && motivo.kind != KRT_REASON_CHARACTER && motivo.position == 0,
             "ISBN too short: %d kind %d at %zu", stato, motivo.kind, motivo.position);
    /* Without KRT_UTF8 an Italian reason comes in Windows-1252 (0xF2, the o with grave of "puo"). */
    krt_explain("EAN13", "97888203000A", KRT_NUL_TERMINATED, KRT_ITALIAN, &motivo);
    VERIFICA(strchr(motivo.text, '\xF2') != NULL, "Italian reason in Windows-1252: \"%s\"", motivo.text);
    /* Without KRT_HRC, Code 32 has no text line of its own. */
    stato = krt_entry_encode("Code 32", "12345678", KRT_NUL_TERMINATED, KRT_CHECK, NULL, &r);
    VERIFICA(stato == KRT_OK && strcmp(krt_result_text(r, KRT_FIELD_CODE, NULL), "C32") == 0, "Code 32 code \"%s\"",
             krt_result_text(r, KRT_FIELD_CODE, NULL));
    krt_result_free(r);
    static const struct { const char *cifre, *atteso; int stato; } completi[] = {
        {"030640615", "030640615-2", KRT_OK}, {"978030640615", "9780306406157", KRT_OK},
        {"97803064061", "", KRT_REFUSED}, {"03064061X", "", KRT_REFUSED}};
    for (size_t i = 0; i < sizeof completi / sizeof completi[0]; ++i) {
        stato = krt_isbn_complete(completi[i].cifre, KRT_NUL_TERMINATED, glifi, sizeof glifi, &n);
        VERIFICA(stato == completi[i].stato && strcmp(glifi, completi[i].atteso) == 0, "ISBN digits %s: %d \"%s\"",
                 completi[i].cifre, stato, glifi);
    }
}

#ifndef __STDC_NO_THREADS__
enum { Fili = 4, Contenuti = 2000 };
static char attesi[Contenuti][64];

static void contenuto(int i, char *testo) { snprintf(testo, 16, "%012d", i * 7919 % 1000000007); }

static int filo(void *arg) {
    const int inizio = *(const int *)arg;
    int errori = 0;
    for (int k = 0; k < Contenuti; ++k) {
        const int i = (inizio + k) % Contenuti;
        char testo[16], glifi[64];
        contenuto(i, testo);
        if (krt_encode("EAN13", testo, KRT_NUL_TERMINATED, KRT_CHECK, glifi, sizeof glifi, NULL) != KRT_OK ||
            strcmp(glifi, attesi[i]) != 0)
            ++errori;
        if (krt_encode("C128", "\\q", KRT_NUL_TERMINATED, 0, glifi, sizeof glifi, NULL) != KRT_BAD_ESCAPE) ++errori;
    }
    return errori;
}

static void threads(void) {
    for (int i = 0; i < Contenuti; ++i) {
        char testo[16];
        contenuto(i, testo);
        krt_encode("EAN13", testo, KRT_NUL_TERMINATED, KRT_CHECK, attesi[i], sizeof attesi[i], NULL);
    }
    thrd_t fili[Fili];
    int inizi[Fili];
    for (int f = 0; f < Fili; ++f) {
        inizi[f] = f * Contenuti / Fili;
        VERIFICA(thrd_create(&fili[f], filo, &inizi[f]) == thrd_success, "thread %d", f);
    }
    for (int f = 0; f < Fili; ++f) {
        int errori = -1;
        thrd_join(fili[f], &errori);
        VERIFICA(errori == 0, "thread %d: %d contents encoded otherwise than alone", f, errori);
    }
}
#else
static void threads(void) {}
#endif

int main(void) {
    memset(tilde, '~', sizeof tilde - 1);
    statuses();
    buffer_sizes();
    utf8_flag();
    null_arguments();
    texts();
    results();
    threads();
    if (fallimenti != 0) fprintf(stderr, "%d failed checks\n", fallimenti);
    return fallimenti == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
