// Opens the pages of --report in Chromium and uses them as a person would:
//
//     node report_test.mjs VESTRA_RESAVE TEST_APPS [PICTURES]
//
// In the folder PICTURES, if it is given, pictures of the sample's page are kept. CHROMIUM names another browser program.
import assert from "node:assert/strict";
import {execFileSync, spawnSync} from "node:child_process";
import {cpSync, mkdtempSync, readFileSync, rmSync, writeFileSync} from "node:fs";
import {createRequire} from "node:module";
import {tmpdir} from "node:os";
import {join, resolve} from "node:path";
import {fileURLToPath, pathToFileURL} from "node:url";
import {chromium} from "playwright-core";

const [program, testApps, pictures] = process.argv.slice(2).map(path => resolve(path));
const sample = fileURLToPath(new URL("../../samples/area", import.meta.url));
const axe = readFileSync(createRequire(import.meta.url).resolve("axe-core/axe.min.js"), "utf8");
const work = mkdtempSync(join(tmpdir(), "report-test-"));

const evil = `</script><script>window.wasRun = true</script>\u2028<img src=x onerror="window.wasRun=true">`;
const inXml = text => text.replace(/[&<>"]/g, sign => `&#${sign.charCodeAt(0)};`);

function makePages() {
    cpSync(sample, join(work, "area"), {recursive: true});
    const project = join(work, "area/c/prj/area._vp");
    const run = (code, ...words) => {
        const drives = ["--drive", `C=${work}/area/c`, "--drive", `D=${work}/area/d`, "--quiet"];
        const {status, stderr} = spawnSync(program, [...words, ...drives], {encoding: "utf8"});
        assert.equal(status, code, stderr);
    };
    run(1, "resave", project, join(work, "copy/area._vp"), "--manifest", "--language", "en", "--report",
        join(work, "copy/area.html"));
    run(1, "verify", join(work, "copy/area._vp"), "--manifest", "--language", "ru", "--report", join(work, "verify.html"));
    const text = readFileSync(project, "utf8");
    assert.ok(text.includes(`caption="Old survey"`) && text.includes(`caption="Roads"`));
    writeFileSync(project, text.replaceAll(/caption="(Old survey|Roads)"/g, `caption="${inXml(evil)}"`));
    run(1, "resave", project, join(work, "evil/area._vp"), "--dry-run", "--language", "en", "--report",
        join(work, "evil.html"));
    execFileSync(testApps, ["--gtest_filter=report_page.very_many*", "--gtest_brief=1"],
        {env: {...process.env, REPORT_PAGE: join(work, "many.html")}});
}

// Opens a page of which nothing may be wrong: no error, no message, nothing from elsewhere.
async function open(browser, name, options = {}) {
    const context = await browser.newContext({viewport: {width: 1320, height: 1000}, ...options});
    context.setDefaultTimeout(10000);
    const page = await context.newPage();
    page.faults = [];
    page.on("console", message => page.faults.push(message.text()));
    page.on("pageerror", error => page.faults.push(error.message));
    page.on("request", request => request.url().startsWith("file:") || page.faults.push(request.url()));
    await page.goto(pathToFileURL(join(work, name)).href);
    return page;
}

async function close(page) {
    assert.deepEqual(page.faults, []);
    await page.context().close();
}

const cells = (page, column) => page.locator(`#rows td.c-${column}`).allTextContents();
const found = async page => parseInt((await page.textContent("#found")).replace(/[,\s]/g, ""), 10);
const state = (page, expression) => page.evaluate(expression);

async function checkAccess(page) {
    await state(page, axe);
    const {violations} = await state(page, "axe.run(document, {resultTypes: ['violations']})");
    const lines = violations.map(each => `${each.id}: ${each.nodes.map(node => node.html + node.failureSummary).join("\n")}`);
    assert.deepEqual(lines, []);
}

const tests = {
    async "a resave is shown with its problems and all its files"(browser) {
        const page = await open(browser, "copy/area.html", {colorScheme: "light"});
        assert.equal(await page.textContent("h1"), "area._vp");
        assert.equal(await page.locator("#problems .found").count(), 6); // includes a renamed copy
        assert.match(await page.textContent("#group-lost"), /old_survey\.shp.*does not exist.*"Old survey" in "Overview"/s);
        assert.equal(await page.locator("#sizes svg.bars").count(), 2);
        const total = await found(page);
        assert.equal(total, 170);
        assert.equal(await page.getAttribute("#table", "aria-rowcount"), String(total + 1));
        await page.fill("#search", "ROADS shp");
        assert.ok((await found(page)) >= 10 && (await found(page)) < 20);
        for (const name of await cells(page, "name")) assert.match(name, /roads/);
        await page.fill("#search", join(work, "area/c/prj/maps/licence areas.dbf"));
        assert.equal(await found(page), 1);
        await page.fill("#search", "no such file");
        assert.equal(await found(page), 0);
        await page.fill("#search", "");
        await checkAccess(page);
        await close(page);
    },

    async "columns sort in both directions"(browser) {
        const page = await open(browser, "copy/area.html");
        await page.click("[data-column=size]");
        const sizes = await cells(page, "size");
        assert.equal(sizes[0], "15.2 KB");
        assert.equal(await page.getAttribute("th.c-size", "aria-sort"), "descending");
        await page.focus("[data-column=name]");
        await page.keyboard.press("Enter");
        const names = await cells(page, "name");
        assert.deepEqual(names, [...names].sort((a, b) => a.toLowerCase() < b.toLowerCase() ? -1 : 1));
        await page.keyboard.press("Enter");
        assert.equal((await cells(page, "name"))[0], "Скважины_shp.pj4");
        assert.equal(await page.locator("th[aria-sort]").count(), 1);
        await close(page);
    },

    async "folders, charts and states choose files"(browser) {
        const page = await open(browser, "copy/area.html");
        await page.click(`[data-side=after] [data-path="rtr/"] button.name`);
        assert.equal(await found(page), 13);
        const related = await page.locator("[data-side=before] .related").evaluateAll(all => all.map(each => each.dataset.path));
        assert.ok(related.includes("c/prj/rasters/") && !related.includes("c/data/wells/"), related.join());
        await page.click(".chip");
        assert.equal(await found(page), 170);
        await page.locator("svg.bars a", {hasText: ".tif"}).first().click();
        assert.equal(await found(page), 3);
        await page.click(".chip");
        await page.selectOption("#state", {label: "lost (1)"});
        assert.deepEqual(await cells(page, "name"), ["old_survey.shp"]);
        const toggle = page.locator("[data-side=before] .toggle").nth(1);
        await toggle.click();
        assert.equal(await toggle.getAttribute("aria-expanded"), "false");
        await close(page);
    },

    async "the keyboard reaches a file and its whole paths"(browser) {
        const page = await open(browser, "copy/area.html");
        await page.fill("#search", "lines.shp");
        await page.focus("#scroller");
        await page.keyboard.press("ArrowDown");
        assert.match(await page.textContent("#details"), /\/area\/c\/prj\/profiles\/lines\.shp.*files of this kind of element are not resaved/s);
        await page.keyboard.press("Escape");
        assert.equal(await page.isVisible("#details"), false);
        await close(page);
    },

    async "both themes can be read"(browser) {
        const colours = [];
        for (const colorScheme of ["light", "dark"]) {
            const page = await open(browser, "verify.html", {colorScheme});
            colours.push(await state(page, "getComputedStyle(document.body).backgroundColor"));
            assert.equal(await page.getAttribute("html", "lang"), "ru");
            assert.doesNotMatch((await page.locator("h2, h3, th, label").allTextContents()).join(), /[A-Za-z]{2}/);
            await checkAccess(page); // includes the contrast of all text
            await close(page);
        }
        assert.notEqual(colours[0], colours[1]);
    },

    async "a narrow window needs no scrolling sideways"(browser) {
        const page = await open(browser, "copy/area.html", {viewport: {width: 360, height: 700}});
        assert.ok((await state(page, "document.documentElement.scrollWidth")) <= 360);
        assert.ok((await cells(page, "name")).length > 5);
        await close(page);
    },

    async "what a project holds is never run"(browser) {
        const page = await open(browser, "evil.html");
        assert.equal(await state(page, "window.wasRun"), undefined);
        assert.equal(await page.locator("script").count(), 2);
        assert.equal(await page.locator("img").count(), 0);
        assert.ok((await page.textContent("#group-lost")).includes("<script>window.wasRun = true</script>"));
        await page.fill("#search", "onerror");
        assert.ok((await found(page)) > 2);
        await page.focus("#scroller");
        await page.keyboard.press("ArrowDown");
        assert.ok((await page.textContent("#details")).includes("<img src=x"));
        // Even if it were in the page, the policy would prevent it from running.
        const faults = page.faults.length;
        await state(page, "document.body.append(document.createRange().createContextualFragment('<script>window.wasRun=1</' + 'script>'))");
        assert.equal(await state(page, "window.wasRun"), undefined);
        page.faults.splice(faults);
        await close(page);
    },

    async "100,000 files are searched and sorted at once"(browser) {
        const page = await open(browser, "many.html");
        assert.equal(await found(page), 100000);
        const timed = async (what, action) => {
            const begin = performance.now();
            await action();
            console.log(`    ${what}: ${Math.round(performance.now() - begin)} ms`);
            assert.ok((await page.locator("#rows tr").count()) < 60, "only rows in sight are drawn");
        };
        await timed("sort", () => page.click("[data-column=name]"));
        await timed("search", () => page.fill("#search", "file 9999"));
        assert.equal(await found(page), 19);
        await timed("search again", () => page.fill("#search", ""));
        await timed("sort by size", () => page.click("[data-column=size]"));
        assert.equal((await cells(page, "name"))[0], "file 99999.tif");
        await timed("go to the end", async () => {
            await page.focus("#scroller");
            await page.keyboard.press("End");
            await page.locator("#rows tr.current").waitFor();
        });
        assert.equal((await cells(page, "name")).at(-1), "file 0.tif");
        await close(page);
    },

    async "it is read without scripts and on paper"(browser) {
        const page = await open(browser, "copy/area.html", {javaScriptEnabled: false});
        for (const part of ["#summary .figures", "#group-lost .found", "#sizes svg.bars", "#folders .tree"])
            assert.ok(await page.locator(part).first().isVisible(), part);
        assert.equal(await page.isVisible("#table"), false);
        assert.match(await page.textContent("noscript"), /needs JavaScript/);
        await close(page);
        const printed = await open(browser, "copy/area.html");
        await printed.emulateMedia({media: "print"});
        assert.ok(await printed.isVisible("#group-lost .found"));
        assert.equal(await printed.isVisible("#table"), false);
        const isOpen = () => printed.isVisible("#group-renamed .found");
        await state(printed, "dispatchEvent(new Event('beforeprint'))");
        assert.ok(await isOpen(), "what is folded up is on paper");
        await state(printed, "dispatchEvent(new Event('afterprint'))");
        assert.equal(await isOpen(), false);
        await close(printed);
    },
};

// One of the upper part, and one of the folders and the table; the test's folder is named as a person's would be.
async function takePictures(browser) {
    const file = join(work, "copy/area.html");
    writeFileSync(file, readFileSync(file, "utf8").replaceAll(work, "/data"));
    const take = async (name, colorScheme, first, last, action) => {
        const page = await open(browser, "copy/area.html", {viewport: {width: 1200, height: 800}, colorScheme});
        await action(page);
        const {y} = await page.locator(first).boundingBox();
        const end = await page.locator(last).boundingBox();
        const clip = {x: 0, y: Math.max(0, y - 24), width: 1200, height: end.y + end.height - Math.max(0, y - 24) + 24};
        await page.screenshot({path: join(pictures, name), fullPage: true, clip});
        await close(page);
    };
    await take("report.png", "light", ".top", "#sizes", async () => {});
    await take("report-files.png", "dark", "#folders", "#files", async page => {
        await page.click(`[data-side=after] [data-path="shp/"] button.name`);
        await page.mouse.move(0, 0);
        await page.addStyleTag({content: ".scroller, .panel.scrolled { max-height: 420px !important; }"});
        await page.evaluate("dispatchEvent(new Event('resize')); scrollTo(0, 0)");
    });
}

let failures = 0;
try {
    makePages();
    const asRoot = process.getuid?.() === 0 ? ["--no-sandbox"] : []; // Chromium refuses to run as root otherwise
    const browser = await chromium.launch({executablePath: process.env.CHROMIUM ?? "/usr/bin/chromium", args: asRoot});
    for (const [name, test] of Object.entries(tests)) {
        try {
            await test(browser);
            console.log(`ok      ${name}`);
        } catch (fault) {
            ++failures;
            console.error(`FAILED  ${name}\n${fault.stack}`);
        }
    }
    if (pictures && failures === 0) await takePictures(browser);
    await browser.close();
} finally {
    rmSync(work, {recursive: true});
}
process.exit(failures === 0 ? 0 : 1);
