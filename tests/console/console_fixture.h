#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "console/console_core.h"
#include "support/counting_yielder.h"
#include "support/fake_clock.h"
#include "support/files.h"
#include "support/fixed_measure.h"
#include "support/recording_display.h"
#include "support/scripted_prompt.h"
#include "support/scripted_random.h"

namespace tolmira::testing {

class RecordingView : public ConsoleView {
public:
  void Atualiza() override { ++atualizacoes; }
  void StripMoved() override { ++moves; }
  void AgendaChanged() override {}
  void ThemesChanged() override {}
  void FocusStrip() override { ++focus; }
  int PreviewWidthPx() const override { return 320; }
  int atualizacoes = 0;
  int moves = 0;
  int focus = 0;
};

// A console without windows over a program folder of its own: what a service looks like from the logic's side.
class ConsoleFixture {
public:
  ConsoleFixture()
      : app(folder.path()), store(app),
        core({app, store, clock, random, yielder, prompt, measure, [this] { return &display; },
              [this] { return &preview; }}) {
    for (const char *sub : {"Data", "Lyrics", "Harpa", "Cantor", "Images", "Slides", "html"})
      QDir(folder.path()).mkdir(QLatin1String(sub));
    for (const char *page : {"backcolor.html", "imagem.html", "video.html"})
      Write(QStringLiteral("html/") + QLatin1String(page), "<html>[letra]</html>");
    qputenv("TEMP", folder.path().toUtf8());
    core.contexto.view = &view;
    core.faixa.PainelLargura = 480 * TwipsPerPixel;
    core.faixa.PainelAltura = 400 * TwipsPerPixel;
    core.estado.ConsoleCarregado = core.estado.TelaPronta = core.estado.EnviarAoTelao = true;
    core.temaControle.SetCheckAlteraTemaAleatorio(false);
    for (TemaRecord &tema : core.temas)
      tema.Maiusculas = false;
    bool forcar = false;
    core.temaControle.aplicaTema(1, forcar);
    Forget();
  }

  void Write(const QString &name, const QByteArray &bytes) { WriteBytes(folder.filePath(name), bytes); }
  QByteArray Read(const QString &name) const { return ReadBytes(folder.filePath(name)); }

  void Forget() {
    display.commands.clear();
    display.page.scripts.clear();
    preview.scripts.clear();
    yielder.calls.clear();
    journal.clear();
  }
  // The text of the verses sent since the last Forget, as their commands carry it.
  QStringList VersesSent() const {
    QStringList verses;
    for (const QString &comando : display.commands)
      if (comando.startsWith(u"UpdateText|#"))
        verses.append(comando.section(QStringLiteral("|#"), 4, 4));
    return verses;
  }
  // A document of `count` slides, "Title 1" and so on, with more keys of its own at the end.
  void WriteSlides(const QString &name, int count, const QByteArray &keys = {}) {
    QByteArray text = "[Config]\r\nCount=" + QByteArray::number(count) + "\r\n";
    for (int i = 1; i <= count; ++i) {
      const QByteArray n = QByteArray::number(i);
      text += "Imagem" + n + "=C:\\p" + n + ".jpg\r\nTitulo" + n + "=Title " + n + "\r\nTexto" + n + "=Text " + n +
              "\r\nFontSize" + n + "=5\r\n";
    }
    Write(u"Slides/" + name, text + "Maiusculas=0\r\n" + keys);
  }
  void Show(const QString &song) { core.flow.ShowEntry(2, 1, song, song); }
  QString Config(const char *key) const {
    return store.ReadConfig(QStringLiteral("Config"), QLatin1String(key), QString());
  }
  void EndGlide() { clock.Advance(1000); }

  QTemporaryDir folder;
  AppFolder app;
  IniStore store;
  FakeClock clock;
  ScriptedRandom random{0.5};
  CountingYielder yielder;
  ScriptedPrompt prompt;
  FixedMeasure measure;
  QStringList journal; // every call on the projection and on both pages, in order
  RecordingDisplay display{&journal};
  RecordingPage preview{&journal, QStringLiteral("preview")};
  RecordingView view;
  ConsoleCore core;
};

inline const QByteArray TresEstrofes = "Primeira linha\r\nSegunda linha\r\n\r\nTerceira linha\r\nQuarta linha\r\n\r\n"
                                       "Quinta linha\r\nSexta linha";

} // namespace tolmira::testing
