// The pictures of a slide show in their order, to be put into another one with the mouse or by keys. The program asks for
// the order with GetLista() and hears of every change by "http://index//".
(function () {
  'use strict';

  const LIMIAR = 6; // px that the pointer goes before a press becomes a drag
  const BORDA = 48; // px at the edges where the gallery scrolls during a drag
  const PASSEIO = 140; // ms of a picture's way to its new place

  const galeria = () => document.getElementById('galeria');
  const caixas = () => Array.from(galeria().querySelectorAll('.box:not(.arrastada)'));
  const endereco = (caixa) => caixa.querySelector('img').getAttribute('src') || '';

  // One byte a character, as the program reads addresses; what one byte cannot hold goes as a character reference.
  function codigo(texto) {
    return Array.from(texto, (c) => {
      const n = c.codePointAt(0);
      if (/[A-Za-z0-9_.~\/:-]/.test(c))
        return c;
      return n < 0x80 || (n >= 0xa0 && n <= 0xff) ? '%' + n.toString(16).padStart(2, '0') : '%26%23' + n + '%3B';
    }).join('');
  }

  const relata = (verbo) =>
    (location.href = 'http://' + verbo + '//?' + caixas().map((c) => codigo(endereco(c)) + '|').join(''));
  const GetLista = () => relata('lista');
  const informa = () => relata('index');

  function nomeDe(caixa) {
    let nome = endereco(caixa).replace(/\\/g, '/').split('/').pop();
    if (/%[0-9A-Fa-f]{2}/.test(nome)) {
      try {
        nome = decodeURIComponent(nome);
      } catch (e) {
        // a name that only looks encoded
      }
    }
    return nome;
  }

  function numera() {
    caixas().forEach((caixa, i, todas) => {
      caixa.setAttribute('aria-label', 'Picture ' + (i + 1) + ' of ' + todas.length + ', ' + nomeDe(caixa));
      caixa.setAttribute('aria-posinset', i + 1);
      caixa.setAttribute('aria-setsize', todas.length);
    });
  }

  // Moves what changed its place by `mudanca` from where it was.
  function comPasseio(mudanca) {
    const antes = new Map(caixas().map((c) => [c, c.getBoundingClientRect()]));
    mudanca();
    caixas().forEach((c) => {
      const de = antes.get(c);
      const para = c.getBoundingClientRect();
      if (de && (de.left !== para.left || de.top !== para.top))
        c.animate(
          { transform: ['translate(' + (de.left - para.left) + 'px,' + (de.top - para.top) + 'px)', 'none'] },
          { duration: PASSEIO, easing: 'ease-out' }
        );
    });
  }

  function focaliza(caixa) {
    if (!caixa)
      return;
    caixas().forEach((c) => (c.tabIndex = c === caixa ? 0 : -1));
    caixa.focus({ preventScroll: true });
    caixa.scrollIntoView({ block: 'nearest' });
  }

  function poeEm(caixa, indice) {
    const outras = caixas().filter((c) => c !== caixa);
    comPasseio(() => galeria().insertBefore(caixa, outras[indice] || null));
    numera();
  }

  function retira(caixa) {
    const todas = caixas();
    const i = todas.indexOf(caixa);
    const vizinha = todas[i + 1] || todas[i - 1];
    comPasseio(() => caixa.remove());
    numera();
    focaliza(vizinha);
    informa();
  }

  function colunas() {
    const todas = caixas();
    const topo = todas.length ? todas[0].offsetTop : 0;
    return Math.max(1, todas.filter((c) => c.offsetTop === topo).length);
  }

  function tecla(e) {
    const caixa = e.target.closest('.box');
    if (!caixa || e.altKey || e.metaKey)
      return;
    const todas = caixas();
    const i = todas.indexOf(caixa);
    const fim = todas.length - 1;
    const destino = {
      ArrowLeft: i - 1,
      ArrowRight: i + 1,
      ArrowUp: i - colunas(),
      ArrowDown: i + colunas(),
      Home: 0,
      End: fim,
    }[e.key];
    if (e.key === 'Delete' && !e.ctrlKey) {
      e.preventDefault();
      retira(caixa);
    } else if (destino !== undefined) {
      e.preventDefault();
      const lugar = Math.min(fim, Math.max(0, destino));
      if (!e.ctrlKey) {
        focaliza(todas[lugar]);
      } else if (lugar !== i) {
        poeEm(caixa, lugar);
        focaliza(caixa);
        informa();
      }
    }
  }

  let arraste = null;

  function pega(e) {
    const caixa = e.target.closest('.box');
    if (e.button !== 0 || !caixa || e.target.closest('.retira'))
      return;
    e.preventDefault();
    focaliza(caixa);
    const r = caixa.getBoundingClientRect();
    arraste = { caixa, x: e.clientX, y: e.clientY, dx: e.clientX - r.left, dy: e.clientY - r.top, copia: null };
    arraste.antes = caixas();
    galeria().setPointerCapture(e.pointerId);
  }

  function levanta() {
    const { caixa } = arraste;
    const r = caixa.getBoundingClientRect();
    arraste.copia = caixa.cloneNode(true);
    arraste.copia.classList.add('arrastada');
    arraste.copia.style.width = r.width + 'px';
    arraste.copia.style.height = r.height + 'px';
    galeria().parentNode.appendChild(arraste.copia);
    caixa.classList.add('lugar');
    arraste.rola = setInterval(rola, 16);
  }

  // The place under the pointer: in front of a picture on its left half, behind it on its right one.
  function acha(x, y) {
    const alvo = document.elementFromPoint(x, y);
    const outra = alvo && alvo.closest('.box');
    if (!outra || outra === arraste.caixa)
      return;
    const r = outra.getBoundingClientRect();
    const outras = caixas().filter((c) => c !== arraste.caixa);
    const indice = outras.indexOf(outra) + (x > r.left + r.width / 2 ? 1 : 0);
    if (caixas().indexOf(arraste.caixa) !== indice)
      poeEm(arraste.caixa, indice);
  }

  function leva(e) {
    if (!arraste)
      return;
    if (!arraste.copia) {
      if (Math.hypot(e.clientX - arraste.x, e.clientY - arraste.y) < LIMIAR)
        return;
      levanta();
    }
    arraste.x = e.clientX;
    arraste.y = e.clientY;
    arraste.copia.style.left = e.clientX - arraste.dx + 'px';
    arraste.copia.style.top = e.clientY - arraste.dy + 'px';
    acha(e.clientX, e.clientY);
  }

  function rola() {
    const r = galeria().getBoundingClientRect();
    const passo = arraste.y < r.top + BORDA ? -12 : arraste.y > r.bottom - BORDA ? 12 : 0;
    if (!passo)
      return;
    const antes = galeria().scrollTop;
    galeria().scrollTop += passo;
    if (galeria().scrollTop !== antes)
      acha(arraste.x, arraste.y);
  }

  function solta(desiste) {
    if (!arraste)
      return;
    const { caixa, copia, antes } = arraste;
    clearInterval(arraste.rola);
    arraste = null;
    if (!copia)
      return;
    copia.remove();
    caixa.classList.remove('lugar');
    if (desiste)
      comPasseio(() => antes.forEach((c) => galeria().appendChild(c)));
    numera();
    focaliza(caixa);
    if (caixas().some((c, i) => c !== antes[i]))
      informa();
  }

  // The window has another height.
  const Altura = (px) => (galeria().style.height = px + 'px');

  // The picture with that number, from 0, is brought into sight and gets the keys.
  const VaiPara = (n) => focaliza(caixas()[n]);

  function IniciaGaleria() {
    const moldes = document.getElementById('imagens').content.querySelectorAll('.box');
    moldes.forEach((molde, i) => {
      const imagem = molde.querySelector('img');
      imagem.loading = 'lazy'; // before it comes into the document, where it would begin to load
      imagem.decoding = 'async';
      imagem.addEventListener('error', () => molde.classList.add('faltando'));
      molde.setAttribute('role', 'option');
      molde.tabIndex = i === 0 ? 0 : -1;
      const nome = document.createElement('div');
      nome.className = 'nome';
      nome.textContent = molde.title = nomeDe(molde);
      const botao = document.createElement('button');
      botao.className = 'retira';
      botao.textContent = '\u00d7';
      botao.tabIndex = -1;
      botao.title = 'Takes the picture out of the show (Del)';
      botao.setAttribute('aria-label', 'Remove ' + nomeDe(molde));
      botao.addEventListener('click', () => retira(molde));
      molde.append(nome, botao);
      galeria().appendChild(molde);
    });
    numera();
    galeria().addEventListener('pointerdown', pega);
    galeria().addEventListener('pointermove', leva);
    galeria().addEventListener('pointerup', () => solta(false));
    galeria().addEventListener('pointercancel', () => solta(true));
    galeria().addEventListener('dragstart', (e) => e.preventDefault()); // the pointer does it, and can scroll meanwhile
    document.addEventListener('keydown', (e) => {
      if (arraste && e.key === 'Escape') {
        e.preventDefault();
        solta(true);
      } else {
        tecla(e);
      }
    });
  }

  Object.assign(window, { GetLista, VaiPara, Altura, IniciaGaleria });
})();
