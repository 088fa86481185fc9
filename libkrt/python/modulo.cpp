// The extension krt._krt: the C interface for Python. Strings go in and out as UTF-8
// (KRT_UTF8); refusals and faults become the exceptions krt.Refused and krt.Error.
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <string>
#include <utility>
#include <vector>

#include "krt/krt.h"

namespace py = pybind11;

namespace {

constexpr const char* NomiMotivo[] = {"none",      "empty", "length",   "character",
                                      "structure", "range", "escape", "overflow"};

const char* NomeMotivo(int tipo) {
    return tipo >= 0 && tipo < static_cast<int>(std::size(NomiMotivo)) ? NomiMotivo[tipo] : "unknown";
}

// Raises krt.Refused (with the reason) for KRT_REFUSED, krt.Error for any other status.
[[noreturn]] void Solleva(int stato, const krt_reason* motivo, py::object indice = py::none()) {
    py::module_ krt = py::module_::import("krt");
    py::object eccezione;
    py::object classe;
    if (stato == KRT_REFUSED) {
        classe = krt.attr("Refused");
        const char* testo = motivo != nullptr && motivo->text[0] != '\0' ? motivo->text : krt_strerror(stato);
        eccezione = classe(py::str(testo), NomeMotivo(motivo != nullptr ? motivo->kind : 0),
                           motivo != nullptr ? motivo->position : 0, motivo != nullptr ? motivo->character : 0,
                           std::move(indice), motivo != nullptr ? motivo->minimum : 0,
                           motivo != nullptr ? motivo->maximum : 0);
    } else {
        classe = krt.attr("Error");
        std::string testo = krt_strerror(stato);
        if (motivo != nullptr && motivo->text[0] != '\0') testo = testo + ": " + motivo->text;
        eccezione = classe(py::str(testo), stato);
    }
    PyErr_SetObject(classe.ptr(), eccezione.ptr());
    throw py::error_already_set();
}

// UTF-8 of a str without a copy (Python keeps it with the object).
std::string_view Utf8(const py::handle& testo) {
    Py_ssize_t n = 0;
    const char* p = PyUnicode_AsUTF8AndSize(testo.ptr(), &n);
    if (p == nullptr) throw py::error_already_set();
    return {p, static_cast<std::size_t>(n)};
}

py::str Str(const char* p, std::size_t n) {
    PyObject* s = PyUnicode_DecodeUTF8(p, static_cast<Py_ssize_t>(n), "strict");
    if (s == nullptr) throw py::error_already_set();
    return py::reinterpret_steal<py::str>(s);
}

unsigned Flag(bool check) { return KRT_UTF8 | (check ? KRT_CHECK : 0u); }

// krt_encode into a stack buffer, a larger one when the glyphs do not fit. KRT_OK or the status.
int Codifica(const char* simbologia, std::string_view contenuto, unsigned flag, std::string& grande, const char*& p,
             std::size_t& n, char (&piccolo)[256]) {
    int stato = krt_encode(simbologia, contenuto.data(), contenuto.size(), flag, piccolo, sizeof piccolo, &n);
    p = piccolo;
    if (stato == KRT_BUFFER_TOO_SMALL) {
        grande.resize(n + 1);
        stato = krt_encode(simbologia, contenuto.data(), contenuto.size(), flag, grande.data(), grande.size(), &n);
        p = grande.data();
    }
    return stato;
}

py::str Encode(const std::string& simbologia, const py::str& contenuto, bool check, bool italiano) {
    const std::string_view c = Utf8(contenuto);
    char piccolo[256];
    std::string grande;
    const char* p = nullptr;
    std::size_t n = 0;
    const int stato = Codifica(simbologia.c_str(), c, Flag(check), grande, p, n, piccolo);
    if (stato == KRT_OK) return Str(p, n);
    krt_reason motivo{};
    krt_explain(simbologia.c_str(), c.data(), c.size(), Flag(check) | (italiano ? KRT_ITALIAN : 0u), &motivo);
    Solleva(stato, &motivo);
}

// A sequence of contents: "" for each content that is not encoded, or with strict the
// exception of the first one (its index in the exception).
py::list EncodeMany(const std::string& simbologia, const py::object& contenuti, bool check, bool strict) {
    const unsigned flag = Flag(check);
    py::object sequenza = py::reinterpret_steal<py::object>(
        PySequence_Fast(contenuti.ptr(), "contents must be an iterable of str"));
    if (!sequenza) throw py::error_already_set();
    const Py_ssize_t quanti = PySequence_Fast_GET_SIZE(sequenza.ptr());
    PyObject** voci = PySequence_Fast_ITEMS(sequenza.ptr());
    py::list risultato(quanti);
    py::str vuota("");
    char piccolo[256];
    std::string grande;
    for (Py_ssize_t i = 0; i < quanti; ++i) {
        const std::string_view c = Utf8(voci[i]);
        const char* p = nullptr;
        std::size_t n = 0;
        const int stato = Codifica(simbologia.c_str(), c, flag, grande, p, n, piccolo);
        if (stato == KRT_OK) {
            PyList_SET_ITEM(risultato.ptr(), i, Str(p, n).release().ptr());
            continue;
        }
        if (stato == KRT_UNKNOWN_SYMBOLOGY || stato == KRT_INVALID_ARGUMENT || strict) {
            krt_reason motivo{};
            krt_explain(simbologia.c_str(), c.data(), c.size(), flag, &motivo);
            Solleva(stato, &motivo, py::int_(i));
        }
        PyList_SET_ITEM(risultato.ptr(), i, vuota.inc_ref().ptr());
    }
    return risultato;
}

// A krt_result as a tuple (glyphs, code, main, addon, family, hrc, content, check), or the exception.
py::tuple DaRisultato(int stato, krt_result* r) {
    struct Libera {
        krt_result* r;
        ~Libera() { krt_result_free(r); }
    } libera{r};
    if (stato == KRT_OK) {
        py::tuple t(8);
        for (int campo = KRT_FIELD_GLYPHS; campo <= KRT_FIELD_CONTENT; ++campo) {
            std::size_t n = 0;
            const char* p = krt_result_text(r, campo, &n);
            t[static_cast<std::size_t>(campo)] = Str(p, n);
        }
        t[7] = py::bool_((krt_result_flags(r) & KRT_CHECK) != 0);
        return t;
    }
    krt_reason motivo{};
    if (r != nullptr) krt_result_reason(r, &motivo);
    Solleva(stato, r != nullptr ? &motivo : nullptr);
}

unsigned FlagVoce(bool check, bool hrc, bool checkInHRC, bool italiano) {
    return KRT_UTF8 | (check ? KRT_CHECK : 0u) | (hrc ? KRT_HRC : 0u) | (checkInHRC ? KRT_CHECK_IN_HRC : 0u) |
           (italiano ? KRT_ITALIAN : 0u);
}

py::tuple Entry(const std::string& nome, const py::str& contenuto, bool check, bool hrc, bool checkInHRC,
                const std::string& stile, bool italiano) {
    const std::string_view c = Utf8(contenuto);
    krt_result* r = nullptr;
    const int stato =
        krt_entry_encode(nome.c_str(), c.data(), c.size(), FlagVoce(check, hrc, checkInHRC, italiano), stile.c_str(), &r);
    return DaRisultato(stato, r);
}

py::tuple Gs1(const std::vector<std::pair<std::string, std::string>>& coppie, const std::string& stile,
              bool italiano) {
    std::vector<const char*> ai, valori;
    for (const auto& [a, v] : coppie) {
        ai.push_back(a.c_str());
        valori.push_back(v.c_str());
    }
    krt_result* r = nullptr;
    const int stato = krt_gs1_encode(ai.data(), valori.data(), coppie.size(), FlagVoce(false, false, false, italiano),
                                     stile.c_str(), &r);
    return DaRisultato(stato, r);
}

py::tuple Gs1Text(const py::str& testo, const std::string& stile, bool italiano) {
    const std::string_view t = Utf8(testo);
    krt_result* r = nullptr;
    const int stato =
        krt_gs1_encode_text(t.data(), t.size(), FlagVoce(false, false, false, italiano), stile.c_str(), &r);
    return DaRisultato(stato, r);
}

py::str Isbn(const py::str& isbn, int forma, bool italiano) {
    if (forma != 10 && forma != 13) throw py::value_error("form must be 10 or 13");
    const std::string_view t = Utf8(isbn);
    char uscita[64];
    std::size_t n = 0;
    krt_reason motivo{};
    const unsigned flag = (forma == 13 ? KRT_ISBN13 : KRT_ISBN10) | (italiano ? KRT_ITALIAN : 0u);
    const int stato = krt_isbn_convert(t.data(), t.size(), flag, uscita, sizeof uscita, &n, &motivo);
    if (stato != KRT_OK) Solleva(stato, &motivo);
    return Str(uscita, n);
}

}  // namespace

PYBIND11_MODULE(_krt, m) {
    m.doc() = "KRT barcode font encoder (the C library libkrt)";
    m.def("encode", &Encode, py::arg("symbology"), py::arg("content"), py::arg("check") = false,
          py::arg("italian") = false);
    m.def("encode_many", &EncodeMany, py::arg("symbology"), py::arg("contents"), py::arg("check") = false,
          py::arg("strict") = false);
    m.def("entry", &Entry, py::arg("name"), py::arg("content"), py::arg("check") = false, py::arg("hrc") = false,
          py::arg("check_in_hrc") = false, py::arg("style") = "Normal", py::arg("italian") = false);
    m.def("gs1", &Gs1, py::arg("pairs"), py::arg("style") = "Normal", py::arg("italian") = false);
    m.def("gs1_text", &Gs1Text, py::arg("text"), py::arg("style") = "Normal", py::arg("italian") = false);
    m.def("isbn", &Isbn, py::arg("isbn"), py::arg("form") = 13, py::arg("italian") = false);
    m.def("version", [] { return std::string(krt_version()); });
}
