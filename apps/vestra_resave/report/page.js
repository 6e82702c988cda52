"use strict";
// Shows the files of the page's data block in a table that draws only the visible rows, so that 100,000 of
// them can be searched and sorted quickly. All data is inserted as text, never as HTML.
(() => {
const data = JSON.parse(document.getElementById("data").textContent);
const at = id => document.getElementById(id);
const [BEFORE, NAME, AFTER, NEW_NAME, BYTES, TYPE, STATE, ELEMENT, NOTE] = [0, 1, 2, 3, 4, 5, 6, 7, 8];
const files = data.files;
const texts = data.texts;

// An index into these lists, or -1 for none.
const listed = (list, number) => number < 0 ? "" : list[number];
const oldFolder = file => listed(data.before.folders, file[BEFORE]);
const newFolder = file => listed(data.after.folders, file[AFTER]);
const newName = file => file[NEW_NAME] || file[NAME];
const shownFolder = text => text === "" ? "./" : text;
const isCopied = file => file[AFTER] >= 0;
// True for a folder that is not below the root of its side.
const isOutside = folder => /^([A-Za-z]:|[\\/])/.test(folder);
const wholePath = (side, folder, name) => (isOutside(folder) ? "" : side.root) + folder + name;

function sizeText(bytes) {
    if (bytes < 0) return "–";
    let value = bytes, unit = 0;
    for (; value >= 1024 && unit + 1 < data.units.length; ++unit) value /= 1024;
    if (unit === 0) return data.units[0].replace("%1", bytes);
    const [whole, part] = value.toFixed(1).split(".");
    return data.units[unit].replace("%1", whole).replace("%2", part);
}

const columns = {
    name: file => newName(file),
    before: file => file[BEFORE] < 0 ? "" : shownFolder(oldFolder(file)),
    after: file => isCopied(file) ? shownFolder(newFolder(file)) : "",
    type: file => data.types[file[TYPE]],
    size: file => file[BYTES],
    state: file => data.states[file[STATE]],
    element: file => listed(data.elements, file[ELEMENT]),
};

// The ascending order of all files by one column, computed on first use.
const orders = {};
function orderBy(column) {
    if (orders[column]) return orders[column];
    const order = Uint32Array.from(files.keys());
    if (column) {
        const keys = files.map(column === "size" ? columns.size : file => columns[column](file).toLowerCase());
        order.sort((a, b) => keys[a] < keys[b] ? -1 : keys[a] > keys[b] ? 1 : a - b);
    }
    return orders[column] = order;
}

let searchable = null;
function searchableTexts() {
    return searchable ??= files.map(file =>
        [oldFolder(file) + file[NAME], newFolder(file) + newName(file), columns.state(file),
            columns.element(file)].join("\n").toLowerCase());
}

const wanted = {words: [], state: -1, type: -1, folder: null};
const sorting = {column: "", isDown: false};
let view = []; // indexes of the visible files, in order
let current = -1; // the row in view whose details are shown

function isInFolder(file) {
    const {side, path, isExact} = wanted.folder;
    if (file[side === "before" ? BEFORE : AFTER] < 0) return false;
    const folder = side === "before" ? oldFolder(file) : newFolder(file);
    return isExact ? folder === path : folder.startsWith(path) && (path !== "" || !isOutside(folder));
}

function isWanted(number) {
    const file = files[number];
    if (wanted.state >= 0 && file[STATE] !== wanted.state) return false;
    if (wanted.type >= 0 && file[TYPE] !== wanted.type) return false;
    if (wanted.folder && !isInFolder(file)) return false;
    return wanted.words.every(word => searchableTexts()[number].includes(word));
}

function refresh() {
    const order = orderBy(sorting.column);
    view = [];
    for (let index = 0; index < order.length; ++index) {
        const number = order[sorting.isDown ? order.length - 1 - index : index];
        if (isWanted(number)) view.push(number);
    }
    current = -1;
    showDetails();
    let bytes = 0;
    for (const number of view) bytes += Math.max(0, files[number][BYTES]);
    at("found").textContent = texts.found.replace("%1", view.length.toLocaleString(document.documentElement.lang))
        .replace("%2", files.length.toLocaleString(document.documentElement.lang)).replace("%3", sizeText(bytes));
    at("table").setAttribute("aria-rowcount", view.length + 1);
    at("scroller").scrollTop = 0;
    draw();
}

// --- the table

const made = (name, className, text) => {
    const element = document.createElement(name);
    if (className) element.className = className;
    if (text !== undefined) element.textContent = text;
    return element;
};

function cellOf(column, file) {
    const cell = made("td", "c-" + column);
    cell.setAttribute("role", "cell");
    const text = column === "size" ? sizeText(file[BYTES]) : columns[column](file);
    if (column === "state") cell.append(made("span", file[NOTE] < 0 ? "tag" : "tag wrong", text));
    else cell.textContent = text;
    return cell;
}

function rowOf(index) {
    const file = files[view[index]];
    const row = made("tr", index === current ? "current" : "");
    row.setAttribute("role", "row");
    row.setAttribute("aria-rowindex", index + 2);
    row.dataset.index = index;
    row.append(...shownColumns.map(column => cellOf(column, file)));
    return row;
}

function space(rows) {
    const row = made("tr", "space");
    row.setAttribute("aria-hidden", "true");
    row.style.height = rows * rowHeight() + "px";
    return row;
}

const rowHeight = () => parseFloat(getComputedStyle(at("table")).getPropertyValue("--row"));

function draw() {
    const scroller = at("scroller"), height = rowHeight(), more = 8;
    const first = Math.max(0, Math.floor(scroller.scrollTop / height) - more);
    const room = parseFloat(getComputedStyle(scroller).maxHeight); // the table has no rows yet
    const last = Math.min(view.length, Math.ceil((scroller.scrollTop + room) / height) + more);
    const rows = [space(first)];
    for (let index = first; index < last; ++index) rows.push(rowOf(index));
    rows.push(space(view.length - Math.max(first, last)));
    at("rows").replaceChildren(...rows);
}

function sortBy(button) {
    const column = button.dataset.column;
    sorting.isDown = sorting.column === column ? !sorting.isDown : column === "size";
    sorting.column = column;
    for (const head of document.querySelectorAll("#table th")) head.removeAttribute("aria-sort");
    button.parentElement.setAttribute("aria-sort", sorting.isDown ? "descending" : "ascending");
    refresh();
}

// --- one file

function showDetails() {
    const box = at("details");
    box.replaceChildren();
    box.hidden = current < 0;
    if (current < 0) return;
    const file = files[view[current]];
    const list = made("dl");
    const add = (label, text) => text && list.append(made("dt", "", label), made("dd", "", text));
    if (file[BEFORE] >= 0) add(texts.source, wholePath(data.before, oldFolder(file), file[NAME]));
    if (isCopied(file)) add(texts.target, wholePath(data.after, newFolder(file), newName(file)));
    add(texts.state, columns.state(file) + ", " + sizeText(file[BYTES]));
    add(texts.element, columns.element(file));
    add(texts.problem, listed(data.notes, file[NOTE]));
    box.append(list);
}

function choose(index) {
    if (view.length === 0) return;
    current = Math.min(Math.max(index, 0), view.length - 1);
    const scroller = at("scroller"), height = rowHeight(), head = at("table").tHead.offsetHeight;
    const top = current * height, room = scroller.clientHeight - head;
    if (top < scroller.scrollTop) scroller.scrollTop = top;
    if (top + height > scroller.scrollTop + room) scroller.scrollTop = top + height - room;
    draw();
    showDetails();
}

const page = () => Math.max(1, Math.floor(at("scroller").clientHeight / rowHeight()) - 2);
const steps = {
    ArrowDown: () => choose(current + 1),
    ArrowUp: () => choose(current < 0 ? 0 : current - 1),
    PageDown: () => choose(Math.max(current, 0) + page()),
    PageUp: () => choose(Math.max(current, 0) - page()),
    Home: () => choose(0),
    End: () => choose(view.length - 1),
    Escape: () => { current = -1; draw(); showDetails(); },
};

// --- filters

function showChips() {
    const chips = [];
    const add = (text, remove) => {
        const chip = made("button", "chip", text);
        chip.type = "button";
        chip.setAttribute("aria-label", texts.remove.replace("%1", () => text));
        chip.addEventListener("click", () => { remove(); want(); at("search").focus(); });
        chips.push(chip);
    };
    if (wanted.type >= 0) add(data.types[wanted.type], () => { wanted.type = -1; });
    if (wanted.folder) {
        const side = data[wanted.folder.side];
        add(wanted.folder.path ? shownFolder(wanted.folder.path) : side.root || "./",
            () => { wanted.folder = null; });
    }
    at("chips").replaceChildren(...chips);
}

// Marks the folders in the other tree that contain files of the chosen folder.
function markFolders() {
    const chosen = wanted.folder;
    const related = new Set();
    if (chosen) for (const number of view) {
        const file = files[number];
        related.add(chosen.side === "before" ? (isCopied(file) ? newFolder(file) : null) : oldFolder(file));
    }
    for (const folder of document.querySelectorAll(".folder")) {
        const {path} = folder.dataset, side = folder.closest("[data-side]").dataset.side;
        const isChosen = chosen && side === chosen.side && path === chosen.path;
        folder.classList.toggle("chosen", Boolean(isChosen));
        folder.classList.toggle("related", Boolean(chosen) && side !== chosen.side && related.has(path));
        folder.querySelector("button.name")?.setAttribute("aria-pressed", String(Boolean(isChosen)));
    }
}

function want() {
    let searched = at("search").value.trim().toLowerCase();
    // A whole path, as the command prints it; the table has paths below the root.
    const roots = [data.before.root, data.after.root].filter(each => searched.startsWith(each.toLowerCase()));
    searched = searched.slice(Math.max(0, ...roots.map(each => each.length)));
    wanted.words = searched.split(/\s+/).filter(Boolean);
    wanted.state = at("state").value === "" ? -1 : Number(at("state").value);
    showChips();
    refresh();
    markFolders();
}

// --- folders and charts

function setOpen(item, isOpen) {
    item.querySelector(":scope > ul").hidden = !isOpen;
    const button = item.querySelector(":scope > .folder > .toggle");
    button.setAttribute("aria-expanded", String(isOpen));
}

function prepareFolder(folder) {
    const item = folder.parentElement, name = folder.querySelector(".name");
    const button = made("button", "name", name.textContent);
    button.type = "button";
    button.setAttribute("aria-pressed", "false");
    name.replaceWith(button);
    button.addEventListener("click", () => {
        const side = folder.closest("[data-side]").dataset.side, {path} = folder.dataset;
        const isSame = wanted.folder && wanted.folder.side === side && wanted.folder.path === path;
        wanted.folder = isSame ? null : {side, path, isExact: false};
        want();
    });
    if (!item.querySelector(":scope > ul")) return;
    const toggle = made("button", "toggle");
    toggle.type = "button";
    toggle.setAttribute("aria-label", texts.toggle.replace("%1", () => button.textContent));
    toggle.addEventListener("click", () => setOpen(item, toggle.getAttribute("aria-expanded") !== "true"));
    folder.prepend(toggle);
    setOpen(item, true);
}

function prepareTrees() {
    for (const tree of document.querySelectorAll("[data-side]")) {
        const folders = tree.querySelectorAll(".folder");
        folders.forEach(prepareFolder);
        if (folders.length <= 60) continue;
        for (const list of tree.querySelectorAll(".tree > li > ul > li > ul")) setOpen(list.parentElement, false);
    }
}

function prepareCharts() {
    for (const bar of document.querySelectorAll("a[data-type], a[data-folder]"))
        bar.addEventListener("click", () => {
            if (bar.dataset.type !== undefined) wanted.type = Number(bar.dataset.type);
            else wanted.folder = {side: "after", path: bar.dataset.folder, isExact: true};
            want();
        });
}

function prepareStates() {
    const counts = data.states.map(() => 0);
    for (const file of files) ++counts[file[STATE]];
    data.states.forEach((state, number) => {
        const option = made("option", "", `${state} (${counts[number]})`);
        option.value = number;
        at("state").append(option);
    });
}

const unused = column => files.every(file => columns[column](file) === "");
const shownColumns = Object.keys(columns).filter(column => column === "size" || !unused(column));
for (const head of document.querySelectorAll("#table th button"))
    if (shownColumns.includes(head.dataset.column)) head.addEventListener("click", () => sortBy(head));
    else head.parentElement.remove();
prepareStates();
prepareTrees();
prepareCharts();
at("tools").addEventListener("submit", event => event.preventDefault());
at("search").addEventListener("input", want);
at("state").addEventListener("change", want);
at("scroller").addEventListener("scroll", () => requestAnimationFrame(draw), {passive: true});
at("scroller").addEventListener("keydown", event => {
    if (event.target !== at("scroller") || !steps[event.key]) return;
    event.preventDefault();
    steps[event.key]();
});
at("rows").addEventListener("click", event => {
    const row = event.target.closest("tr[data-index]");
    if (row) choose(Number(row.dataset.index));
});
addEventListener("resize", draw);
let unfolded = []; // opened for printing, except groups that are too large for a browser to print
const isPrintable = folded => folded.querySelectorAll(".found").length <= 5000;
addEventListener("beforeprint", () => {
    unfolded = [...document.querySelectorAll("details:not([open])")].filter(isPrintable);
    for (const each of unfolded) each.open = true;
});
addEventListener("afterprint", () => { for (const each of unfolded) each.open = false; });
document.documentElement.classList.add("ready");
refresh();
})();
