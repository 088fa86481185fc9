#include "gs1/composizione_ai.h"

#include <optional>

#include "barcodes/validazione.h"
#include "text/formatta.h"
#include "gs1/catalogo_ai.h"
#include "gs1/validazione_ai.h"

namespace krt {

namespace {

EsitoRigheAI Errore(int id, std::string testo) { return {{}, id, std::move(testo)}; }

struct AIAperto {
    std::size_t indice;
    std::size_t lunghezza; // "(" + AI + ")"
};

// The catalogue AI that riga opens at pos with "(AI)", if any.
std::optional<AIAperto> AIApertoA(std::string_view riga, std::size_t pos) {
    if (pos >= riga.size() || riga[pos] != '(') return std::nullopt;
    const auto resto = riga.substr(pos + 1);
    for (std::size_t i = 0; i < CatalogoAI.size(); ++i) {
        const auto ai = CatalogoAI[i].ai;
        if (resto.starts_with(ai) && resto.substr(ai.size()).starts_with(')'))
            return AIAperto{i, ai.size() + 2};
    }
    return std::nullopt;
}

}  // namespace

ElementoAI ComponiElementoAI(std::size_t indice, std::string_view valore) {
    if (indice >= CatalogoAI.size()) return {{}, {}, std::string(valore)};
    const auto& voce = CatalogoAI[indice];
    const auto regola = RegolaDelFormato(voce.formato);
    ElementoAI elemento{{}, std::string(voce.ai), std::string(valore)};
    // Lengths of variable values are those of the text as inserted, blanks included.
    const bool corto = valore.size() < static_cast<std::size_t>(regola.limite);

    switch (regola.tipo) {
    case TipoFormato::Numerico:
    case TipoFormato::NumericoConCheck:
        break;
    case TipoFormato::Alfanumerico:
    case TipoFormato::NumericoPiuTesto:
    case TipoFormato::NumericoVariabile:
        elemento.pezzo = elemento.ai + elemento.valore;
        if (corto) elemento.pezzo += SeparatoreCampo;
        return elemento;
    case TipoFormato::Decimale: {
        // The AI's fourth digit tells how many of the N digits are decimals.
        const auto testo = TagliaSpazi(valore);
        const auto punto = testo.find('.');
        const auto decimali = punto == std::string::npos ? 0 : testo.size() - punto - 1;
        elemento.valore = CTrimL(StrTran(testo, ".", ""), '0');
        const auto n = static_cast<std::size_t>(regola.n);
        if (n > elemento.valore.size()) elemento.valore = RiempiSinistra(elemento.valore, n, "0");
        elemento.ai += std::to_string(decimali);
        break;
    }
    case TipoFormato::NumericoLungo: {
        // The AI's third digit counts digit pairs; an even length gets a leading "0".
        elemento.valore = TagliaSpazi(valore);
        const auto lunghezza = elemento.valore.size();
        elemento.ai += std::to_string(lunghezza / 2); // (L - 1) / 2 for an odd L
        if (lunghezza % 2 == 0) elemento.valore.insert(0, "0");
        break;
    }
    case TipoFormato::Sconosciuto:
        return elemento;
    }
    elemento.pezzo = elemento.ai + elemento.valore;
    return elemento;
}

CodiceComposto ComponiCodiceAI(const std::vector<RigaCodice>& righe) {
    std::string contenuto;
    std::string hrc;
    for (const auto& riga : righe) {
        const auto elemento = ComponiElementoAI(riga.indice, riga.valore);
        contenuto += elemento.pezzo;
        hrc += "(" + elemento.ai + ")" + elemento.valore;
    }
    if (!contenuto.empty() && contenuto.back() == SeparatoreCampo) contenuto.pop_back();
    return {FormattaEscape(contenuto), hrc};
}

EsitoRigheAI PreparaRigheAI(const std::vector<std::pair<std::string, std::string>>& coppie) {
    if (coppie.empty())
        return Errore(MessaggioCodiceVuoto, std::string(TestoMessaggioInglese(MessaggioCodiceVuoto)));
    EsitoRigheAI esito;
    for (const auto& [ai, valore] : coppie) {
        const auto indice = CercaAI(ai);
        if (!indice) return Errore(0, "Unknown AI: " + ai);
        const auto formato = CatalogoAI[*indice].formato;
        // The value box takes no more than its limit.
        const auto limite = LimiteValore(formato);
        if (limite && valore.size() > static_cast<std::size_t>(*limite))
            return Errore(MessaggioLunghezzaErrata,
                          std::string(TestoMessaggioInglese(MessaggioLunghezzaErrata)));
        auto valido = ValidaValoreAI(valore, formato);
        if (!valido.accettato)
            return Errore(valido.idMessaggio, std::string(TestoMessaggioInglese(valido.idMessaggio)));
        esito.righe.push_back({*indice, std::move(valido.valore)});
    }
    return esito;
}

EsitoRigheAI LeggiRigaGS1(std::string_view riga) {
    std::vector<std::pair<std::string, std::string>> coppie;
    std::size_t pos = 0;
    while (pos < riga.size()) {
        const auto aperto = AIApertoA(riga, pos);
        if (!aperto) {
            const auto chiusa = riga.find(')', pos);
            if (riga[pos] == '(' && chiusa != std::string_view::npos)
                return Errore(0, "Unknown AI: " + std::string(riga.substr(pos + 1, chiusa - pos - 1)));
            return Errore(0, "Expected \"(AI)\" at position " + std::to_string(pos + 1));
        }
        auto fine = pos + aperto->lunghezza;
        while (fine < riga.size() && !AIApertoA(riga, fine)) ++fine;
        coppie.emplace_back(std::string(CatalogoAI[aperto->indice].ai),
                            std::string(riga.substr(pos + aperto->lunghezza, fine - pos - aperto->lunghezza)));
        pos = fine;
    }
    return PreparaRigheAI(coppie);
}

}  // namespace krt
