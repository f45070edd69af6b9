// SPDX-License-Identifier: MIT
// The texts of the page that do not stand out from what is behind them: 4.5 to 1, or 3 to 1 for large ones and badges.
(function () {
    function luminance(color) {
        return color.match(/\d+/g).slice(0, 3).map(function (part) {
            return part <= 10 ? part / 3295 : Math.pow((part / 255 + 0.055) / 1.055, 2.4);
        }).reduce(function (sum, part, i) { return sum + part * [0.2126, 0.7152, 0.0722][i]; }, 0.05);
    }
    function behind(element) {
        var style = getComputedStyle(element);
        var stops = style.backgroundImage.match(/rgb\([^)]*\)/g);
        return stops || (/^rgb\(/.test(style.backgroundColor) ? [style.backgroundColor] : behind(element.parentNode));
    }
    var found = [], node, nodes = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT, null, false);
    while ((node = nodes.nextNode())) {
        var element = node.parentNode, style = getComputedStyle(element), size = parseFloat(style.fontSize);
        var isLarge = size >= 24 || size >= 18.5 && /bold|[7-9]00/.test(style.fontWeight) || element.className == 'badge';
        if (!node.data.trim() || element.tagName == 'SCRIPT')
            continue;
        behind(element).forEach(function (color) {
            var one = luminance(style.color), other = luminance(color);
            if (Math.max(one, other) / Math.min(one, other) < (isLarge ? 3 : 4.5))
                found.push(node.data + ' ' + style.color + ' on ' + color);
        });
    }
    return found.join('; ') || 'none';
})();
