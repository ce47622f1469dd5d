// Serves a folder on this machine as a web host would: serve.mjs FOLDER [PORT]. Prints its address.
import { createReadStream, existsSync, statSync } from "node:fs";
import { createServer } from "node:http";
import { extname, join, normalize, resolve } from "node:path";

const types = { ".html": "text/html; charset=utf-8", ".js": "text/javascript", ".css": "text/css", ".wasm": "application/wasm",
    ".tsv": "text/tab-separated-values; charset=utf-8", ".svg": "image/svg+xml", ".png": "image/png", ".webmanifest": "application/manifest+json" };
const headers = { "X-Content-Type-Options": "nosniff", "Referrer-Policy": "no-referrer" };

export function serve(folder, port = 0) {
    const root = resolve(folder);
    const server = createServer((request, response) => {
        const path = decodeURIComponent(new URL(request.url, "http://host").pathname);
        const file = join(root, normalize(path.endsWith("/") ? `${path}index.html` : path));
        if (!file.startsWith(root) || !existsSync(file) || !statSync(file).isFile()) {
            response.writeHead(404).end();
            return;
        }
        const accepted = request.headers["accept-encoding"] ?? "";
        const [suffix, encoding] = [[".br", "br"], [".gz", "gzip"]].find(([ending, name]) => accepted.includes(name) && existsSync(file + ending)) ?? ["", ""];
        const caching = /\/assets\//.test(path) ? "public, max-age=31536000, immutable" : "no-cache";
        response.writeHead(200, { ...headers, "Content-Type": types[extname(file)] ?? "application/octet-stream", "Cache-Control": caching,
            ...(encoding ? { "Content-Encoding": encoding, Vary: "Accept-Encoding" } : {}) });
        createReadStream(file + suffix).pipe(response);
    });
    return new Promise((done, failed) => {
        server.on("error", failed);
        server.listen(port, "127.0.0.1", () => done({ server, address: `http://localhost:${server.address().port}/` }));
    });
}

if (process.argv[1] === new URL(import.meta.url).pathname) {
    const { address } = await serve(process.argv[2] ?? "dist/page", Number(process.argv[3] ?? 8742));
    console.log(address);
}
