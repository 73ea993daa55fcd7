// A slide show that runs by itself: a text, the pictures one after the other, a text. The program calls Pause() and
// Play(), and hears by fake addresses which picture is on show and when the end is near.
//
// Each picture is decoded and painted at the screen's size before it is shown, while the one before it still stands, so
// that a change only has to put finished layers together. Every layer covers the whole screen: the next picture comes in
// over the one on show, which stays opaque beneath it, and there is neither a dark nor a white moment in between.
(function () {
  'use strict';

  const $ = (id) => document.getElementById(id);
  const MAIOR_TEXTO = 9; // vh, font size of a short text
  const MENOR_TEXTO = 2;
  const LEITURA = 10000; // ms after which a picture is given up
  const ATRASO = 300; // ms after which a movement counts as over though no frame has told so: the page may be hidden

  let parado = false;
  const relogios = new Set();
  const movimentos = new Set();

  // A wait that stands still while the show does.
  function espera(ms) {
    const relogio = { resta: Math.max(0, ms), desde: 0, id: 0 };
    relogio.anda = () => {
      relogio.desde = performance.now();
      relogio.id = setTimeout(relogio.acaba, relogio.resta);
    };
    relogio.para = () => {
      clearTimeout(relogio.id);
      relogio.resta = Math.max(0, relogio.resta - (performance.now() - relogio.desde));
    };
    relogio.quantoResta = () => (parado ? relogio.resta : relogio.resta - (performance.now() - relogio.desde));
    relogio.fim = new Promise((pronto) => {
      relogio.acaba = () => {
        clearTimeout(relogio.id);
        relogio.resta = 0;
        relogios.delete(relogio);
        pronto();
      };
    });
    relogios.add(relogio);
    if (!parado)
      relogio.anda();
    return relogio;
  }

  async function move(elemento, quadros, ms, easing) {
    const movimento = elemento.animate(quadros, { duration: ms, easing: easing || 'ease-in-out', fill: 'both' });
    movimentos.add(movimento);
    if (parado)
      movimento.pause();
    const prazo = espera(ms + ATRASO);
    await Promise.race([movimento.finished, prazo.fim]);
    prazo.acaba();
    movimentos.delete(movimento);
    if (movimento.playState !== 'finished')
      movimento.finish();
  }

  // The program cancels these navigations and reads them with one byte a character.
  function relata(destino, texto) {
    const codigo = Array.from(String(texto), (c) => {
      const n = c.codePointAt(0);
      if (/[A-Za-z0-9_.~-]/.test(c))
        return c;
      return n < 0x80 || (n >= 0xa0 && n <= 0xff) ? '%' + n.toString(16).padStart(2, '0') : '%26%23' + n + '%3B';
    });
    location.href = destino + '?' + codigo.join('');
  }

  function novo(classe, dono, nome) {
    const elemento = document.createElement(nome || 'div');
    elemento.className = classe;
    dono.appendChild(elemento);
    return elemento;
  }

  const pixels = (canvas) => {
    canvas.width = Math.max(1, Math.round(innerWidth * devicePixelRatio));
    canvas.height = Math.max(1, Math.round(innerHeight * devicePixelRatio));
    return canvas.getContext('2d', { alpha: false });
  };

  // Draws the picture as large as it goes in whole (contain) or so that it fills the screen (cover).
  function pinta(contexto, imagem, cobre) {
    const { width, height } = contexto.canvas;
    const w = imagem.naturalWidth || imagem.width;
    const h = imagem.naturalHeight || imagem.height;
    const escala = (cobre ? Math.max : Math.min)(width / w, height / h);
    contexto.imageSmoothingQuality = 'high';
    contexto.drawImage(imagem, (width - w * escala) / 2, (height - h * escala) / 2, w * escala, h * escala);
  }

  // A few pixels drawn large are a soft picture that costs nothing.
  function difusa(imagem) {
    const pequena = document.createElement('canvas');
    pequena.width = 36;
    pequena.height = 20;
    pinta(pequena.getContext('2d'), imagem, true);
    const media = document.createElement('canvas');
    media.width = 180;
    media.height = 100;
    pinta(media.getContext('2d'), pequena, true);
    return media;
  }

  // The picture whole, and behind its sides, where it does not fill the screen, a soft dark one of itself.
  function desenha(quadro, imagem) {
    const contexto = pixels(quadro.foto);
    const soft = difusa(imagem);
    const proporcao = imagem.naturalWidth / imagem.naturalHeight / (contexto.canvas.width / contexto.canvas.height);
    if (Math.abs(proporcao - 1) > 0.01) {
      pinta(contexto, soft, true);
      contexto.fillStyle = 'rgba(0, 0, 0, 0.62)';
      contexto.fillRect(0, 0, contexto.canvas.width, contexto.canvas.height);
    }
    pinta(contexto, imagem, Math.abs(proporcao - 1) <= 0.01);
    pinta(pixels(quadro.difusa), soft, true);
  }

  // Fails for what cannot be read, and for what takes so long that its disk may be gone.
  async function le(endereco) {
    const imagem = new Image();
    let limite = 0;
    const tarde = new Promise((_, falha) => (limite = setTimeout(falha, LEITURA)));
    imagem.src = endereco;
    try {
      await Promise.race([imagem.decode(), tarde]);
    } catch (e) {
      imagem.removeAttribute('src');
      throw e;
    } finally {
      clearTimeout(limite);
    }
    return imagem;
  }

  // A picture ready to be shown, or nothing when it cannot be read.
  async function prepara(item) {
    try {
      const imagem = await le(item.src);
      const quadro = { item, camada: document.createElement('div') };
      quadro.camada.className = 'quadro';
      const interior = novo('interior', quadro.camada);
      quadro.interior = interior;
      quadro.difusa = novo('difusa', interior, 'canvas');
      quadro.foto = novo('foto', interior, 'canvas');
      quadro.sombra = novo('sombra', interior);
      desenha(quadro, imagem);
      quadro.refaz = () => le(item.src).then((outra) => desenha(quadro, outra), () => {});
      return quadro;
    } catch (e) {
      return null;
    }
  }

  const SUAVE = 'cubic-bezier(0.4, 0.1, 0.2, 1)';
  const BALANCO = 'cubic-bezier(0.45, 0.05, 0.3, 1)';

  const mostra = (q) => (q.camada.style.opacity = 1);
  const usa = (elemento) => elemento.classList.add('usada');
  const escala = (q) => q.camada.classList.add('escala');
  const surge = (q, ms) => move(q.camada, { opacity: [0, 1] }, ms);

  function entra(de) {
    return (q, ms) => {
      mostra(q);
      return move(q.camada, { transform: [de, 'none'] }, ms, SUAVE);
    };
  }

  // A growing window over a picture that stands: what carries the window is taken back inside it.
  function descobre(de, volta) {
    return (q, ms) => {
      mostra(q);
      return Promise.all([
        move(q.camada, { transform: [de, 'none'] }, ms, BALANCO),
        move(q.interior, { transform: [volta, 'none'] }, ms, BALANCO),
      ]);
    };
  }

  function cresce(de) {
    return (q, ms) => {
      escala(q);
      return Promise.all([
        move(q.camada, { opacity: [0, 1] }, ms * 0.75),
        move(q.interior, { transform: [de, 'none'] }, ms, SUAVE),
      ]);
    };
  }

  // Ways in, from 1.
  const ENTRADAS = [
    surge,
    cresce('scale(0.8)'),
    cresce('scale(1.25)'),
    entra('translateX(100%)'),
    entra('translateX(-100%)'),
    entra('translateY(100%)'),
    descobre('translateX(-100%)', 'translateX(100%)'),
    descobre('translateY(-100%)', 'translateY(100%)'),
    cresce('perspective(120vw) translateX(22%) rotateY(-50deg)'),
    (q, ms) => {
      usa(q.difusa);
      q.foto.style.opacity = 0;
      return Promise.all([
        move(q.camada, { opacity: [0, 1] }, ms * 0.55),
        move(q.foto, { opacity: [0, 0, 1] }, ms),
      ]);
    },
  ];

  // What a picture does as the next one comes in over it. It goes on covering the screen, or nearly.
  function deriva(para) {
    return (q, ms) => {
      escala(q);
      return move(q.interior, { transform: ['none', para] }, ms, 'ease-in');
    };
  }

  function escurece(q, ms, quanto) {
    usa(q.sombra);
    return move(q.sombra, { opacity: [0, quanto] }, ms);
  }

  const SAIDAS = [
    () => Promise.resolve(),
    deriva('scale(1.22)'),
    (q, ms) => Promise.all([deriva('scale(0.92)')(q, ms), escurece(q, ms, 0.35)]),
    deriva('translateX(-12%) scale(1.26)'),
    deriva('translateX(12%) scale(1.26)'),
    deriva('translateY(-12%) scale(1.26)'),
    deriva('translateY(12%) scale(1.26)'),
    deriva('rotate(3deg) scale(1.2)'),
    (q, ms) => escurece(q, ms, 0.5),
    (q, ms) => {
      usa(q.difusa);
      return move(q.foto, { opacity: [1, 0] }, ms);
    },
  ];

  const escolhe = (efeitos, numero) => efeitos[numero - 1] || efeitos[0];

  function fica(q) {
    q.camada.classList.remove('escala');
    q.camada.style.opacity = q.foto.style.opacity = 1;
    q.difusa.classList.remove('usada');
  }

  // The text as large as the screen has room for.
  function cabe(texto) {
    const dentro = texto.firstElementChild;
    for (let tamanho = MAIOR_TEXTO; tamanho >= MENOR_TEXTO; tamanho *= 0.93) {
      texto.style.fontSize = tamanho + 'vmin';
      if (dentro.offsetHeight <= innerHeight * 0.86 && dentro.scrollWidth <= innerWidth * 0.9)
        return;
    }
  }

  function poeTexto(molde) {
    if (!molde || !molde.content.textContent.trim())
      return null;
    const texto = novo('fala', $('palco'));
    novo('', texto).appendChild(molde.content.cloneNode(true));
    cabe(texto);
    return texto;
  }

  const mostraTexto = (texto) => (texto.style.opacity = 1);

  const numero = (valor, padrao) => {
    const n = parseFloat(valor);
    return Number.isFinite(n) ? Math.max(0, n) : padrao;
  };
  const lista = (texto) => String(texto || '').split(',').map((s) => parseInt(s, 10));

  // Where in the list the vez-th picture of that name is; 0 means the end of the list, less the start text.
  function lugar(itens, { nome, vez }) {
    if (vez <= 0)
      return vez ? 0 : itens.length;
    const assim = itens.flatMap((item, i) => (item.nome === nome ? [i] : []));
    return assim[Math.min(vez, assim.length) - 1] || 0;
  }

  // The picture as the browser shows it, until it is painted: the host keeps its old frame while it is being read, and
  // nobody sees a black screen in between.
  function guardaLugar(item, palco) {
    const imagem = item && novo('guarda', palco, 'img');
    if (imagem) {
      imagem.alt = '';
      imagem.src = item.src;
    }
    return imagem;
  }

  let fimPrevisto = null; // runs until the end of the show, once that is in sight

  function vaiAcabar(ms) {
    fimPrevisto = espera(ms);
    if (!parado) // Play() tells it
      relata('http://vaiacabar/', Math.round(ms));
  }

  const prontos = new Set(); // painted and not yet gone, which a change of the screen's size paints again
  let redesenho = 0;
  addEventListener('resize', () => {
    clearTimeout(redesenho);
    redesenho = setTimeout(() => {
      prontos.forEach((q) => q.refaz());
      document.querySelectorAll('.fala').forEach(cabe);
    }, 150);
  });

  let curso = 0; // counts the runs: one that was given up does nothing any more

  // `retoma` names the picture to begin with and which of those of its name it is. That picture, or the start or end text,
  // stands at once.
  async function corre(show, retoma) {
    const meu = ++curso;
    const vale = () => meu === curso;
    const palco = $('palco');
    const itens = Array.from($('lista').content.querySelectorAll('img'), (img, i) => ({
      src: img.getAttribute('src'),
      nome: img.id,
      entrada: lista(show.efeitosEntrada)[i],
      saida: lista(show.efeitosSaida)[i],
    })).filter((item) => item.src);
    const tempo = numero(show.tempo, 5000);
    const entrada = numero(show.entrada, 2000);
    const saida = numero(show.saida, 2000);

    // The next picture that can be read.
    let proximo = retoma ? lugar(itens, retoma) : 0;
    async function busca() {
      while (proximo < itens.length) {
        const quadro = await prepara(itens[proximo++]);
        if (!vale())
          return null;
        if (quadro) {
          prontos.add(quadro);
          return quadro;
        }
      }
      return null;
    }

    function larga(quadro) {
      quadro.camada.remove();
      prontos.delete(quadro);
    }

    let atual = null;
    const daImagem = retoma && retoma.vez > 0;
    let guarda = daImagem && guardaLugar(itens[proximo], palco);
    let aguardado = busca();

    const inicio = retoma && retoma.vez >= 0 ? null : poeTexto($('inicio'));
    if (inicio) {
      if (retoma)
        mostraTexto(inicio);
      else
        await move(inicio, { opacity: [0, 1], transform: ['translateY(2vh)', 'none'] }, entrada, SUAVE);
      await espera(tempo).fim;
      aguardado = aguardado.then(async (quadro) => {
        if (!vale())
          return null;
        await move(inicio, { opacity: [1, 0], transform: ['none', 'translateY(-2vh)'] }, saida, 'ease-in');
        inicio.remove();
        return quadro;
      });
    }

    let quadro = await aguardado;
    if (!vale())
      return;
    aguardado = null; // it would keep the first picture's layers until the end
    while (quadro) {
      palco.appendChild(quadro.camada);
      relata('http://image/', quadro.item.nome);
      const antes = atual;
      const saindo = antes && escolhe(SAIDAS, antes.item.saida)(antes, saida);
      if (!daImagem || antes)
        await escolhe(ENTRADAS, quadro.item.entrada)(quadro, entrada);
      fica(quadro);
      if (guarda) {
        guarda.remove();
        guarda = null;
      }
      atual = quadro;
      if (antes) {
        await saindo; // what of it lies behind the new picture is not seen any more
        larga(antes);
      }
      const estada = espera(tempo);
      const seguinte = busca();
      seguinte.then((q) => q || !vale() || vaiAcabar(Math.max(0, estada.quantoResta()) + saida));
      await estada.fim;
      quadro = await seguinte;
      if (!vale())
        return;
    }

    if (atual) {
      await Promise.all([
        escolhe(SAIDAS, atual.item.saida)(atual, saida),
        move(atual.camada, { opacity: [1, 0] }, saida, 'ease-in'),
      ]);
      larga(atual);
      atual = null;
    } else {
      if (guarda)
        guarda.remove();
      vaiAcabar(0);
    }
    if (!vale())
      return;
    const fim = poeTexto($('final'));
    if (fim && retoma && !retoma.vez)
      mostraTexto(fim);
    else if (fim)
      await move(fim, { opacity: [0, 1], transform: ['translateY(2vh)', 'none'] }, entrada, SUAVE);
  }

  function Pause() {
    if (parado)
      return;
    relogios.forEach((r) => r.para());
    movimentos.forEach((m) => m.pause());
    parado = true;
  }

  // The program has ended the fade of the sound when it paused the show, so it hears of the end again, also of one that
  // has passed. A movement that has come to its end meanwhile would begin anew.
  function Play() {
    if (!parado)
      return;
    parado = false;
    relogios.forEach((r) => r.anda());
    movimentos.forEach((m) => (m.currentTime >= m.effect.getComputedTiming().endTime ? m.finish() : m.play()));
    if (fimPrevisto)
      relata('http://vaiacabar/', Math.round(fimPrevisto.resta));
  }

  let pedido = null;

  function IniciaShow(show) {
    pedido = show;
    void corre(show);
  }

  // Waits and movements that stand still end nothing, so the run that made them ends with them.
  function Retoma(nome, vez) {
    relogios.forEach((r) => r.para());
    movimentos.forEach((m) => m.pause());
    relogios.clear();
    movimentos.clear();
    prontos.clear();
    fimPrevisto = null;
    $('palco').replaceChildren();
    void corre(pedido, { nome, vez });
  }

  Object.assign(window, { Pause, Play, Retoma, IniciaShow });
})();
