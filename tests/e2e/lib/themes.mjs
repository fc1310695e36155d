// Theme files that hold, and what a check says of each.
const colours = {
    name: 'Night', bgMain: '#101218', bgPanel: '#181b24', bgHeader: '#fff', accent: 'rgb(255, 0,0)',
    accentHover: '#4a5bFF', text: '#E8ECF4', font: "'Consolas', 'Courier New', monospace",
};

/** The first bytes of a PNG of that size, which is as far as a check reads. */
function png(width, height) {
    const bytes = Buffer.alloc(33);
    Buffer.from([137, 80, 78, 71, 13, 10, 26, 10, 0, 0, 0, 13]).copy(bytes);
    bytes.write('IHDR', 12);
    bytes.writeUInt32BE(width, 16);
    bytes.writeUInt32BE(height, 20);
    return bytes.toString('base64');
}

const font = Buffer.alloc(1024, 'OTTO').toString('base64');
const pieces = { button: png(192, 64), 'button.on': png(192, 64), window: png(1024, 768) };
const skinned = (skin) => JSON.stringify({ ...colours, format: 2, skin: { template: 1, ...skin } });

export const goodThemes = {
    colours: { text: JSON.stringify(colours), says: 'OK colours' },
    'older format with a broken skin': { text: JSON.stringify({ ...colours, format: 1, skin: { pieces: 7 } }), says: 'OK colours' },
    'another template': { text: skinned({ template: 2, pieces: { nonsense: 'x' } }), says: 'OK colours' },
    'one piece': { text: skinned({ pieces: { window: pieces.window } }), says: 'OK skin 1 pieces' },
    'three pieces': { text: skinned({ pieces }), says: 'OK skin 3 pieces' },
    'pieces and a font': { text: skinned({ pieces, font }), says: 'OK skin 3 pieces +font' },
    'a font alone': { text: skinned({ font }), says: 'OK skin 0 pieces +font' },
};
