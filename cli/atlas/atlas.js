// The arrow keys turn to the rooms before and behind, unless they scroll a picture.
addEventListener('keydown', event => {
    const relation = { ArrowLeft: 'prev', ArrowRight: 'next' }[event.key];
    if (!relation || event.altKey || event.ctrlKey || event.metaKey || event.shiftKey)
        return;
    const scroller = event.target.closest?.('.scroll');
    if (scroller && scroller.scrollWidth > scroller.clientWidth)
        return;
    const link = document.querySelector(`a[rel="${relation}"]`);
    if (link)
        location.href = link.href;
});
