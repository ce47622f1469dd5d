// Keeps the page's own files, all or none, so that it opens without a connection. A new version takes over when the
// tabs of the old one are closed.
const cacheName = "vanoka-VERSION";
const files = [/* files */];

self.addEventListener("install", (event) => event.waitUntil(caches.open(cacheName).then((cache) => cache.addAll(files))));

self.addEventListener("activate", (event) => event.waitUntil((async () => {
    for (const name of await caches.keys())
        if (name.startsWith("vanoka-") && name !== cacheName)
            await caches.delete(name);
    await self.clients.claim();
})()));

self.addEventListener("fetch", (event) => {
    if (event.request.method !== "GET" || new URL(event.request.url).origin !== self.location.origin)
        return;
    event.respondWith((async () => {
        const cache = await caches.open(cacheName);
        const kept = await cache.match(event.request.mode === "navigate" ? "./" : event.request, { ignoreSearch: true });
        return kept ?? fetch(event.request);
    })());
});
