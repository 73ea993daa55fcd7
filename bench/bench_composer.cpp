#include <benchmark/benchmark.h>

#include <QGuiApplication>

#include "display/lyrics_composer.h"
#include "foundation/real_seams.h"

using namespace tolmira;

namespace {

// A display that swallows its commands: only the composing is measured.
class NullDisplay : public tolmira::Display {
public:
  void ProcessaComando(const QString &) override {}
  PageObject *WV() override { return nullptr; }
  MediaPlayer *wmp() override { return nullptr; }
  void EscondeMidia() override {}
  void ParaRampa() override {}
  QSize SizePx() const override { return QSize(1920, 1080); }
  bool DisplayVisivel() const override { return true; }
  void DefineTelaPreta(bool) override {}
  void DefineFundoPadrao(const QString &) override {}
};

struct Composer {
  EstadoConsole estado;
  AjustesTexto ajustes;
  NullDisplay display;
  FontTextMeasure measure;
  SystemRandom random;
  DisplayChannel canal{estado, [this]() -> tolmira::Display * { return &display; }};
  LyricsComposer letras{
      estado,  ajustes, canal, [this]() -> tolmira::Display * { return &display; }, [] { return nullptr; },
      measure, random};

  Composer() {
    estado.TelaPronta = true;
    estado.FonteTamanho = QStringLiteral("60");
    estado.TemaAtual.Font_Name = QStringLiteral("Liberation Sans");
    estado.TextoEstrofes = {
        QStringLiteral("Sacia a minha sede<br>Lava o meu interior<br>Eu quero fluir em Tuas águas"
                       "<br>Eu quero beber da Tua fonte<br>Fonte de águas vivas<br>Tu és a fonte, Senhor"),
        QStringLiteral("Deus é fiel<br>Para sempre")};
  }
};

// What a key press waits for. A whole verse is to stay below 0.2 ms.
void MontaVerso(benchmark::State &state) {
  Composer composer;
  composer.ajustes.EstiloLouvor = static_cast<int>(state.range(0));
  composer.ajustes.FontSizeClass = 0; // the class that measures every verse
  for (auto _ : state)
    benchmark::DoNotOptimize(composer.letras.MontaVerso(composer.estado.TextoEstrofes[0]));
}
BENCHMARK(MontaVerso)->ArgName("style")->Arg(1)->Arg(2)->Arg(4)->Arg(7)->Arg(8)->Unit(benchmark::kMicrosecond);

void ExibeVerso(benchmark::State &state) {
  Composer composer;
  int posicao = 0;
  for (auto _ : state)
    composer.letras.ExibeVerso(1 + (posicao++ & 1), true);
}
BENCHMARK(ExibeVerso)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv) {
  QGuiApplication app(argc, argv); // fonts need it
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
