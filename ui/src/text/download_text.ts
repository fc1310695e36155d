const megabyte = 1_000_000;

// "4.2 of 18.6 MB · 22 %"; without a known total only what has come so far.
export function describeDownload(received: number, total: number): string {
  if (received <= 0 && total <= 0) return "Starting the download…";
  if (total <= 0) return `${megabytes(received)} MB`;
  return `${megabytes(received)} of ${megabytes(total)} MB · ${percent(received, total)} %`;
}

export function percent(received: number, total: number): number {
  if (total <= 0) return 0;
  return Math.min(100, Math.max(0, Math.floor((received / total) * 100)));
}

function megabytes(bytes: number): string {
  return (bytes / megabyte).toFixed(1);
}
