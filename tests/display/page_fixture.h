#pragma once

#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QHash>
#include <QImage>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineSettings>
#include <QWebEngineView>
#include <functional>

namespace tolmira::testing {

// A program folder that holds nothing but the page files and their libraries, and a page of the real engine that shows
// a filled template from another folder, as the display does.
class PageFixture {
public:
  PageFixture() : m_profile(std::make_unique<QWebEngineProfile>()), m_page(new Page(m_profile.get())) {
    const QDir source(qEnvironmentVariable("TOLMIRA_SOURCE_DIR"));
    const QDir html(source.filePath(QStringLiteral("assets/html")));
    QDir(m_app.path()).mkpath(QStringLiteral("html/lib"));
    QDir(m_app.path()).mkpath(QStringLiteral("Images"));
    const QStringList files = html.entryList(QDir::Files);
    for (const QString &file : files)
      QFile::copy(html.filePath(file), m_app.filePath(u"html/" + file));
    const QDir modules(source.filePath(QStringLiteral("node_modules")));
    m_libraries = QFile::copy(modules.filePath(QStringLiteral("jquery/dist/jquery.min.js")),
                              m_app.filePath(QStringLiteral("html/lib/jquery.min.js"))) &&
                  QFile::copy(modules.filePath(QStringLiteral("jquery-cycle/index.js")),
                              m_app.filePath(QStringLiteral("html/lib/jquery.cycle.js"))) &&
                  QFile::copy(modules.filePath(QStringLiteral("animate.css/animate.css")),
                              m_app.filePath(QStringLiteral("html/lib/animate.css")));
    m_page->setBackgroundColor(Qt::black);
    m_page->settings()->setAttribute(QWebEngineSettings::PlaybackRequiresUserGesture, false);
    m_page->settings()->setAttribute(QWebEngineSettings::ShowScrollBars, false);
    m_view.setPage(m_page.get());
    m_view.resize(1280, 720);
    m_view.show();
  }

  ~PageFixture() { m_view.setPage(nullptr); }

  bool hasLibraries() const { return m_libraries; }
  QWebEngineView &view() { return m_view; }
  QString appPath() const { return m_app.path(); }

  // What scripts complained about since the last load.
  QStringList errors() const { return m_page->errors; }

  // A picture of one colour under Images, by its stored path.
  QString MakePicture(const QString &name, const QColor &colour) {
    QImage picture(320, 180, QImage::Format_RGB32);
    picture.fill(colour);
    picture.save(m_app.filePath(u"Images/" + name));
    return m_app.path() + u"\\Images\\" + name;
  }

  // The list of pictures as the program writes it.
  static QString PictureList(const QStringList &paths) {
    QString list = paths.size() == 1 ? QStringLiteral("<div></div>") : QString();
    for (const QString &path : paths)
      list += u"<div><img class='img efeitos' src='" + path + u"'></div>\r\n";
    return list;
  }

  // Fills the template with a plain white theme, `values` over it, and loads it. False when the page did not load.
  bool Load(const QString &name, const QHash<QString, QString> &values = {}) {
    QFile file(m_app.filePath(u"html/" + name));
    if (!file.open(QIODevice::ReadOnly))
      return false;
    QString page = QString::fromLatin1(file.readAll());
    QHash<QString, QString> all{
        {QStringLiteral("fximage"), QStringLiteral("fade")},
        {QStringLiteral("syncimage"), QStringLiteral("1")},
        {QStringLiteral("speedimage"), QStringLiteral("120")},
        {QStringLiteral("delayimage"), QStringLiteral("0")},
        {QStringLiteral("easingimage"), QString()},
        {QStringLiteral("listaImages"), QString()},
        {QStringLiteral("stateMoveImage"), QStringLiteral("paused")},
        {QStringLiteral("urlvideo"), QString()},
        {QStringLiteral("backcolor"), QStringLiteral("#103050")},
        {QStringLiteral("apppath"), m_app.path()},
        {QStringLiteral("VerticalAlign"), QStringLiteral("center")},
        {QStringLiteral("letra"), QString()},
        {QStringLiteral("TransparenciaFaixa"), QStringLiteral("0.0")},
        {QStringLiteral("blur"), QStringLiteral("0")},
        {QStringLiteral("brightness"), QStringLiteral("100")},
        {QStringLiteral("contrast"), QStringLiteral("100")},
        {QStringLiteral("saturate"), QStringLiteral("100")},
        {QStringLiteral("ComandoInicial"), QString()},
        {QStringLiteral("fontsize"), QStringLiteral("40")},
        {QStringLiteral("fontname"), QStringLiteral("Liberation Sans")},
        {QStringLiteral("fontcolor"), QStringLiteral("#ffffff")},
        {QStringLiteral("text-shadow"), QStringLiteral("#161717 0px 1px 2px ,#000000 4px 4px 8px ;")},
        {QStringLiteral("displayTexto"), QStringLiteral("block")},
    };
    all.insert(values);
    for (auto it = all.cbegin(); it != all.cend(); ++it)
      page.replace(u'[' + it.key() + u']', it.value());
    QFile out(m_temp.filePath(QStringLiteral("temp.html")));
    if (!out.open(QIODevice::WriteOnly))
      return false;
    out.write(page.toLatin1());
    out.close();
    return Navigate(QUrl(u"file:///" + out.fileName()));
  }

  bool Navigate(const QUrl &url) {
    m_page->errors.clear();
    bool ok = false;
    QEventLoop loop;
    const auto connection = QObject::connect(m_page.get(), &QWebEnginePage::loadFinished, &loop, [&](bool loaded) {
      ok = loaded;
      loop.quit();
    });
    m_page->load(url);
    loop.exec();
    QObject::disconnect(connection);
    return ok;
  }

  // The value of an expression, after it ran in the page.
  QVariant Eval(const QString &script) {
    QVariant value;
    QEventLoop loop;
    m_page->runJavaScript(script, [&](const QVariant &result) {
      value = result;
      loop.quit();
    });
    loop.exec();
    return value;
  }

  bool WaitFor(const QString &condition) {
    return QTest::qWaitFor([&] { return Eval(condition).toBool(); }, 20000);
  }

  QColor PixelAt(int x, int y) { return m_view.grab().toImage().pixelColor(x, y); }

  bool WaitForPixel(int x, int y, const QColor &wanted) {
    return QTest::qWaitFor(
        [&] {
          const QColor seen = PixelAt(x, y);
          return qAbs(seen.red() - wanted.red()) < 6 && qAbs(seen.green() - wanted.green()) < 6 &&
                 qAbs(seen.blue() - wanted.blue()) < 6;
        },
        20000);
  }

private:
  class Page : public QWebEnginePage {
  public:
    using QWebEnginePage::QWebEnginePage;
    QStringList errors;

  protected:
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString &message, int,
                                  const QString &) override {
      // A file that is not there is no fault of a script.
      if (level == ErrorMessageLevel && !message.contains(QLatin1String("ERR_FILE_NOT_FOUND")))
        errors << message;
    }
  };

  QTemporaryDir m_app;
  QTemporaryDir m_temp;
  bool m_libraries = false;
  std::unique_ptr<QWebEngineProfile> m_profile;
  std::unique_ptr<Page> m_page;
  QWebEngineView m_view;
};

} // namespace tolmira::testing
