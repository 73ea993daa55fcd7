#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QCryptographicHash>
#include <utility>

namespace tolmira::testing {

// A PDF of these objects, numbered from 1, the first of which is the catalogue.
inline QByteArray HandMadePdf(const QByteArrayList &objects, const QByteArray &trailer = {}) {
  QByteArray pdf = "%PDF-1.4\n";
  QByteArray table = "0000000000 65535 f \n";
  for (qsizetype i = 0; i < objects.size(); ++i) {
    table += QByteArray::number(pdf.size()).rightJustified(10, '0') + " 00000 n \n";
    pdf += QByteArray::number(i + 1) + " 0 obj\n" + objects[i] + "\nendobj\n";
  }
  const QByteArray start = QByteArray::number(pdf.size());
  const QByteArray size = QByteArray::number(objects.size() + 1);
  return pdf + "xref\n0 " + size + '\n' + table + "trailer\n<</Size " + size + "/Root 1 0 R" + trailer +
         ">>\nstartxref\n" + start + "\n%%EOF\n";
}

// One page; `page` says what it has besides its parent ("/MediaBox[0 0 200 100]"), `content` what is drawn on it.
inline QByteArray OnePagePdf(const QByteArray &page, const QByteArray &content = {}, const QByteArray &trailer = {}) {
  QByteArrayList objects{"<</Type/Catalog/Pages 2 0 R>>", "<</Type/Pages/Kids[3 0 R]/Count 1>>",
                         "<</Type/Page/Parent 2 0 R" + page + (content.isEmpty() ? ">>" : "/Contents 4 0 R>>")};
  if (!content.isEmpty())
    objects.append("<</Length " + QByteArray::number(content.size()) + ">>stream\n" + content + "\nendstream");
  return HandMadePdf(objects, trailer);
}

inline QByteArray Rc4(const QByteArray &key, QByteArray text) {
  QByteArray state(256, 0);
  for (int i = 0; i < 256; ++i)
    state[i] = static_cast<char>(i);
  const auto at = [&state](int i) { return static_cast<uchar>(state[i]); };
  for (int i = 0, j = 0; i < 256; ++i) {
    j = (j + at(i) + static_cast<uchar>(key[i % key.size()])) & 255;
    std::swap(state[i], state[j]);
  }
  int i = 0;
  int j = 0;
  for (char &c : text) {
    i = (i + 1) & 255;
    j = (j + at(i)) & 255;
    std::swap(state[i], state[j]);
    c = static_cast<char>(c ^ state[(at(i) + at(j)) & 255]);
  }
  return text;
}

// One empty page that opens with this password only.
inline QByteArray LockedPdf(const QByteArray &password) {
  const QByteArray padding = QByteArray::fromHex("28bf4e5e4e758a4164004e56fffa01082e2e00b6d0683e802f0ca9fe6453697a");
  const QByteArray padded = QByteArray(password + padding).left(32);
  const QByteArray id(16, 'i');
  const auto key = [](const QByteArray &of) { return QCryptographicHash::hash(of, QCryptographicHash::Md5).left(5); };
  const QByteArray owner = Rc4(key(padded), padded);
  const QByteArray user = Rc4(key(padded + owner + QByteArray("\xfc\xff\xff\xff", 4) + id), padding);
  return OnePagePdf("/MediaBox[0 0 160 90]", {},
                    "/Encrypt<</Filter/Standard/V 1/R 2/O<" + owner.toHex() + ">/U<" + user.toHex() + ">/P -4>>/ID[<" +
                        id.toHex() + "><" + id.toHex() + ">]");
}

} // namespace tolmira::testing
