// The vendor's hosts as a test wants them to behave: a TLS server on port 443, and a plain one on
// port 80 that would give the same away.
import http from 'node:http';
import https from 'node:https';

export class Server {
    /** Listens with this certificate; answers come from `routes`, by host and path. */
    static async open(certificate) {
        const server = new Server();
        server.requests = [];
        server.plainRequests = [];
        server.routes = new Map();
        server.sockets = new Set();
        server.https = https.createServer(certificate, (request, response) => server.answer(request, response));
        server.https.on('secureConnection', (socket) => {
            server.sockets.add(socket);
            socket.on('close', () => server.sockets.delete(socket));
            socket.on('error', () => {});
        });
        server.https.on('tlsClientError', () => {});
        server.http = http.createServer((request, response) => {
            server.plainRequests.push(request.url);
            server.answer(request, response);
        });
        await new Promise((resolve) => server.https.listen(443, '127.0.0.1', resolve));
        await new Promise((resolve) => server.http.listen(80, '127.0.0.1', resolve));
        return server;
    }

    /** Answers the address with `handler(request, response)` from here on. */
    on(url, handler) {
        const { host, pathname, search } = new URL(url);
        this.routes.set(host + pathname + search, handler);
    }

    answer(request, response) {
        this.requests.push({
            host: request.headers.host, path: request.url, method: request.method,
            agent: request.headers['user-agent'],
        });
        const handler = this.routes.get(request.headers.host + request.url);
        if (handler) {
            handler(request, response);
        } else {
            response.writeHead(404, { 'content-length': 9 }).end('not found');
        }
    }

    reset() {
        this.requests = [];
        this.plainRequests = [];
        this.routes.clear();
    }

    /** Shows this certificate from here on; connections that another one opened are broken. */
    async use(certificate) {
        this.https.setSecureContext(certificate);
        await this.dropConnections();
    }

    /** Waits until they are closed: a client may still take one that is just closing for its next request. */
    async dropConnections() {
        const closed = [...this.sockets].map((socket) => new Promise((resolve) => socket.once('close', resolve)));
        for (const socket of this.sockets) socket.destroy();
        await Promise.all(closed);
    }

    async close() {
        await this.dropConnections();
        await new Promise((resolve) => this.https.close(resolve));
        this.http.closeAllConnections();
        await new Promise((resolve) => this.http.close(resolve));
    }
}

/** Answers with these bytes; further headers replace the ordinary ones. */
export function body(bytes, headers = {}) {
    return (request, response) => {
        response.writeHead(200, { 'content-length': Buffer.byteLength(bytes), ...headers });
        response.end(bytes);
    };
}

/** Answers without saying how long the answer is. */
export function unannounced(bytes) {
    return (request, response) => {
        response.writeHead(200, { connection: 'close' });
        response.useChunkedEncodingByDefault = false;
        response.end(bytes);
    };
}

export function redirect(location) {
    return (request, response) => response.writeHead(302, { location, 'content-length': 0 }).end();
}

export function status(code) {
    return (request, response) => response.writeHead(code, { 'content-length': 5 }).end('never');
}

/** Says that `announced` bytes come, sends these and breaks the connection. */
export function cutShort(bytes, announced) {
    return (request, response) => {
        response.writeHead(200, { 'content-length': announced });
        response.write(bytes, () => setTimeout(() => response.destroy(), 50));
    };
}

/** Sends these bytes of what it announced, then nothing more. */
export function stall(bytes, announced) {
    return (request, response) => {
        response.writeHead(200, { 'content-length': announced });
        response.write(bytes);
    };
}

/** Takes the request and never answers. */
export function silence() {
    return () => {};
}

/** Sends zeros: `total` bytes of them, or for ever; announced unless `length` is null. */
export function zeros(total, length = total) {
    return (request, response) => {
        response.writeHead(200, length === null ? {} : { 'content-length': length });
        const block = Buffer.alloc(1 << 20);
        let sent = 0;
        const more = () => {
            while (sent < total) {
                const piece = block.subarray(0, Math.min(block.length, total - sent));
                sent += piece.length;
                if (!response.write(piece)) {
                    response.once('drain', more);
                    return;
                }
            }
            response.end();
        };
        more();
    };
}

/**
 * Sends the bytes in so many pieces, one each `pause` milliseconds, and the second half of them
 * only when the promise is kept.
 */
export function inPieces(bytes, pieces, pause, goOn) {
    return async (request, response) => {
        response.writeHead(200, { 'content-length': bytes.length });
        const end = (piece) => Math.round((bytes.length * piece) / pieces);
        for (let piece = 0; piece < pieces; ++piece) {
            if (piece === Math.floor(pieces / 2)) await goOn;
            if (response.destroyed) return;
            response.write(bytes.subarray(end(piece), end(piece + 1)));
            await new Promise((resolve) => setTimeout(resolve, pause));
        }
        response.end();
    };
}
